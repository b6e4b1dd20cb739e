// SPDX-License-Identifier: MIT
//
// Replays a fuzz target over the files of a directory, with any compiler: ripassa DIRECTORY
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti);

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    int quanti = 0;
    for (const auto& voce : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(voce.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s\n", voce.path().filename().c_str());
        std::fflush(stdout); // the name of the one that ends it
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++quanti;
    }
    std::printf("%d inputs\n", quanti);
    return quanti > 0 ? 0 : 1;
}
