// Takes the place of the help viewer: writes its arguments, as they are on its command line, into "hh.txt" beside it.
#include <windows.h>

#include <fstream>
#include <string>

int main(int, char** words) {
    const std::string line = GetCommandLineA();
    const std::size_t program_end = line.front() == '"' ? line.find('"', 1) + 1 : line.find(' ');
    const std::string program = words[0];
    std::ofstream(program.substr(0, program.rfind('.')) + ".txt")
        << line.substr(line.find_first_not_of(' ', program_end));
}
