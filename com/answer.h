// From a COM method to the core function of the same name: the caller's pointers become the function's parameters, its
// result the answer, and no exception leaves.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "com/guarded.h"
#include "com/server_instance.h"
#include "com/strings.h"
#include "server/type_code.h"
#include "text/text.h"

namespace vintrel::com {

/// The caller's argument as the core function's parameter. Nothing is copied.
template <typename Parameter>
class Argument;

template <>
class Argument<std::u16string_view> {
 public:
    explicit Argument(BSTR* string) : text_(com::View(*string)) {}
    std::u16string_view Value() const { return text_; }
    void WriteBack() {}

 private:
    std::u16string_view text_;
};

template <>
class Argument<server::TypeCode> {
 public:
    explicit Argument(BSTR* string) : string_(*string) {}
    server::TypeCode Value() const {
        return string_ ? server::TypeCode(reinterpret_cast<char16_t*>(string_), Length(string_)) : server::TypeCode();
    }
    void WriteBack() {}

 private:
    BSTR string_;
};

template <>
class Argument<text::InOutText&> {
 public:
    explicit Argument(BSTR* string) : string_(string), text_(com::View(*string)) {}
    text::InOutText& Value() { return text_; }
    void WriteBack() {
        if (text_.Replaced()) Rewrite(string_, text_);
    }

 private:
    BSTR* string_;
    text::InOutText text_;
};

template <>
class Argument<std::int16_t> {
 public:
    explicit Argument(const short* number) : number_(*number) {}
    std::int16_t Value() const { return number_; }
    void WriteBack() {}

 private:
    short number_;
};

template <>
class Argument<std::int32_t> {
 public:
    explicit Argument(const long* number) : number_(*number) {}
    std::int32_t Value() const { return number_; }
    void WriteBack() {}

 private:
    long number_;
};

inline void Put(BSTR* result, std::u16string_view text) { *result = NewString(text); }
inline void Put(short* result, std::int16_t number) { *result = number; }
inline void Put(long* result, std::int32_t number) { *result = number; }
/// Four decimals, held as ten thousandths.
inline void Put(CURRENCY* result, std::int64_t ten_thousandths) { result->int64 = ten_thousandths; }

template <typename Result, typename Returned, typename... Parameters, typename... Given, std::size_t... Own,
          std::size_t... Needed>
[[gnu::always_inline]] inline HRESULT AnswerWith(const ClassEntry& entry, Result* result,
                                                 Returned (*core)(Parameters...), std::index_sequence<Own...>,
                                                 std::index_sequence<Needed...>, Given*... given) noexcept {
    // A Variant result is always empty: zero is VT_EMPTY, too.
    if (result) *result = {};
    if (!result || !(... && given)) return Failure(entry, E_POINTER, L"A variable is missing: null was given for it.");

    using All = std::tuple<Parameters...>;
    std::tuple<Argument<std::tuple_element_t<Own, All>>...> arguments(given...);
    const HRESULT answered = Guarded(entry, [&] {
        // What the operation needs of the server follows the caller's arguments and is found by its type.
        const auto call = [&] {
            return core(std::get<Own>(arguments).Value()..., (static_cast<void>(Needed), TheServer())...);
        };
        if constexpr (std::is_void_v<Returned>)
            call();
        else
            Put(result, call());
    });
    // What the operation has already done to the caller's variables stays done when it fails.
    const HRESULT written = Guarded(entry, [&] { (std::get<Own>(arguments).WriteBack(), ...); });
    return FAILED(answered) ? answered : written;
}

template <typename Result, typename Returned, typename... Parameters, typename... Given>
[[gnu::always_inline]] inline HRESULT AnswerOperation(const ClassEntry& entry, Result* result,
                                                      Returned (*core)(Parameters...), Given*... given) noexcept {
    static_assert(sizeof...(Given) <= sizeof...(Parameters));
    return AnswerWith(entry, result, core, std::index_sequence_for<Given...>(),
                      std::make_index_sequence<sizeof...(Parameters) - sizeof...(Given)>(), given...);
}

}  // namespace vintrel::com
