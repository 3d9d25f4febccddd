// Takes the place of the help viewer: writes its arguments, as they are on its command line, into "hh.txt" beside it.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

int main() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring record(path);
    record.replace(record.rfind(L'.'), std::wstring::npos, L".txt");

    const std::wstring line = GetCommandLineW();
    const std::size_t program_end = line.front() == L'"' ? line.find(L'"', 1) + 1 : line.find(L' ');
    const std::size_t arguments = line.find_first_not_of(L' ', program_end);
    std::ofstream file{std::filesystem::path(record)};
    for (const wchar_t character : line.substr(arguments)) file << static_cast<char>(character);
}
