// Runs a fuzz target over every file of its seed corpus (or the files named on the
// command line), so that the corpus is a regression test in every build.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size);

namespace {
int Replay(std::filesystem::path const &file)
{
    std::ifstream in(file, std::ios::binary);
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<uint8_t const *>(bytes.data()), bytes.size());
    return 1;
}
} // namespace

int main(int argc, char **argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        std::filesystem::path const arg(argv[i]);
        if (std::filesystem::is_directory(arg)) {
            for (auto const &entry : std::filesystem::recursive_directory_iterator(arg))
                if (entry.is_regular_file())
                    count += Replay(entry.path());
        } else {
            count += Replay(arg);
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("replayed %d inputs\n", count);
    return count > 0 ? 0 : 1;
}
