// What the C++ library does when its contract is broken: a text beyond every length, an exception that nobody catches.
// Its own code for these cases would bring its second string class, a demangler and a formatter into the DLL, a third
// of the whole; the server's fence tells the host no more than "unexpected" in any case.
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <new>

// NOLINTBEGIN(bugprone-reserved-identifier,cert-*,readability-redundant-declaration): the library's names
namespace std {
namespace {

class BrokenContract : public exception {
 public:
    const char* what() const noexcept override { return "broken contract of the C++ library"; }
};

}  // namespace

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_array_new_length(); }
void __throw_length_error(const char*) { throw BrokenContract(); }
void __throw_logic_error(const char*) { throw BrokenContract(); }
void __throw_out_of_range(const char*) { throw BrokenContract(); }
void __throw_out_of_range_fmt(const char*, ...) { throw BrokenContract(); }

}  // namespace std

namespace __gnu_cxx {

void __verbose_terminate_handler();
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx
// NOLINTEND(bugprone-reserved-identifier,cert-*,readability-redundant-declaration)
