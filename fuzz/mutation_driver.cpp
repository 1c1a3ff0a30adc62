// Runs a fuzz target without libFuzzer: the corpus as it stands, then mutations of it from a fixed seed.
// Usage: fuzz_x CORPUS_FOLDER COUNT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

std::vector<Input> ReadCorpus(const char* folder) {
  std::vector<Input> corpus;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return corpus;
}

// Some bytes at a random place become others: fewer, more or as many.
void MutateOnce(Input& input, std::mt19937& random) {
  const std::size_t at = random() % (input.size() + 1);
  const std::size_t taken = std::min<std::size_t>(random() % 3, input.size() - at);
  const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
  Input fresh(random() % 3);
  for (std::uint8_t& byte : fresh) byte = static_cast<std::uint8_t>(random());
  const auto rest = input.erase(place, place + static_cast<std::ptrdiff_t>(taken));
  input.insert(rest, fresh.begin(), fresh.end());
  if (random() % 16 == 0) input.resize(at);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::vector<Input> corpus = ReadCorpus(argv[1]);
  if (corpus.empty()) return 1;
  for (const Input& input : corpus) LLVMFuzzerTestOneInput(input.data(), input.size());
  std::mt19937 random(1);
  const long count = std::atol(argv[2]);
  for (long i = 0; i < count; ++i) {
    Input input = corpus[random() % corpus.size()];
    for (unsigned changes = 1 + random() % 8; changes > 0; --changes) MutateOnce(input, random);
    LLVMFuzzerTestOneInput(input.data(), input.size());
  }
}
