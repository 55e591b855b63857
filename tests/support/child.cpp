/// For tests to start: "sleep MILLISECONDS"; "FILE WORD..." writes its name and the words, a line each.
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

int main(int count, char** words) {
    if (count < 2) return 1;
    if (words[1] == std::string("sleep")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(words[2])));
        return 0;
    }
    std::ofstream file(words[1], std::ios::binary);
    for (int i = 0; i < count; i += i == 0 ? 2 : 1) file << words[i] << '\n';
}
