#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

// Runs a fuzz target without a fuzzer: every file of a corpus, then a fixed number of mutations of them, the same ones
// for the same seed. With a fuzzer's own main the target works as it is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;

const char* const kTokens[] = {"null", "true",    "-1", "9223372036854775808", "1e999", "{}", "[]",
                               "\"\"", "\\ud800", ","};

std::vector<Bytes> readCorpus(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<Bytes> corpus;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return corpus;
}

void mutate(Bytes& bytes, const std::vector<Bytes>& corpus, std::mt19937_64& random) {
    const auto below = [&](size_t limit) { return limit ? random() % limit : 0; };
    const size_t at = below(bytes.size() + 1);
    const auto here = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const auto some = here + static_cast<std::ptrdiff_t>(below(std::min<size_t>(bytes.size() - at, 32) + 1));
    switch (below(5)) {
        case 0:
            if (at < bytes.size())
                bytes[at] = static_cast<uint8_t>(random());
            break;
        case 1:
            bytes.erase(here, some);
            break;
        case 2: {
            const char* token = kTokens[below(std::size(kTokens))];
            bytes.insert(bytes.erase(here, some), token, token + std::strlen(token));
            break;
        }
        case 3: {
            const Bytes copy(here, some);
            bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size() + 1)), copy.begin(),
                         copy.end());
            break;
        }
        default: {
            const Bytes& other = corpus[below(corpus.size())];
            bytes.resize(at);
            bytes.insert(bytes.end(), other.begin() + static_cast<std::ptrdiff_t>(std::min(at, other.size())),
                         other.end());
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    unsigned long runs = 0;
    unsigned long first = 0;
    unsigned long seed = 1;
    std::string folder;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--runs" && i + 1 < argc)
            runs = std::strtoul(argv[++i], nullptr, 10);
        else if (argument == "--first" && i + 1 < argc)
            first = std::strtoul(argv[++i], nullptr, 10);
        else if (argument == "--seed" && i + 1 < argc)
            seed = std::strtoul(argv[++i], nullptr, 10);
        else
            folder = argument;
    }
    const auto corpus = std::filesystem::is_directory(folder) ? readCorpus(folder) : std::vector<Bytes>();
    if (corpus.empty()) {
        std::cerr << "usage: " << argv[0]
                  << " [--runs N] [--first N] [--seed N] CORPUS_FOLDER (with at least one file)\n";
        return 2;
    }
    for (const Bytes& bytes : corpus)
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());

    // Names the run that a failure ended; "--first" goes back to it.
    std::ofstream lastRun{argv[0] + std::string(".last-run")};
    for (unsigned long run = first; run < first + runs; ++run) {
        lastRun.seekp(0) << "--seed " << seed << " --first " << run << " --runs 1\n" << std::flush;
        std::mt19937_64 random(seed * 1'000'003 + run);
        Bytes bytes = corpus[random() % corpus.size()];
        for (auto times = random() % 6 + 1; times > 0; --times)
            mutate(bytes, corpus, random);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::cout << corpus.size() << " files, " << runs << " mutations, seed " << seed << ": no failure\n";
}
