// Runs a fuzz target over the files of folders, for a compiler without a fuzzing engine.
// Usage: <target>_replay FOLDER...

#include "fuzz_target.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace
{

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    if (files.empty())
        throw std::runtime_error(folder.string() + " holds no files.");
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const std::filesystem::path& file)
{
    // Flushed, so that the name of the file that ends the program is the last one.
    std::cout << file.string() << std::endl;
    std::ifstream stream(file, std::ios_base::binary);
    if (!stream)
        throw std::runtime_error(file.string() + " can't be opened.");
    // A block of just that size, so that a sanitizer sees a step behind its end.
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount < 2) {
        std::cerr << "usage: " << arguments[0] << " FOLDER..." << std::endl;
        return 2;
    }
    try {
        for (int i = 1; i < argumentCount; ++i) {
            for (const std::filesystem::path& file : FilesOf(arguments[i]))
                Replay(file);
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
    return 0;
}
