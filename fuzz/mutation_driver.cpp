// Runs a fuzz target without libFuzzer: the corpus as it stands, then mutations of it from a fixed seed.
// Usage: fuzz_x CORPUS_FOLDER COUNT
#include <cstddef>
#include <cstdint>
#include <cstdio>
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

void MutateOnce(Input& input, std::mt19937& random) {
  const std::size_t at = input.empty() ? 0 : random() % input.size();
  const auto byte = static_cast<std::uint8_t>(random());
  const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
  switch (random() % 5) {
    case 0:
      input.insert(place, byte);
      break;
    case 1:
      if (!input.empty()) input.erase(place);
      break;
    case 2:
      if (!input.empty()) input[at] = byte;
      break;
    case 3:
      if (!input.empty()) input[at] ^= static_cast<std::uint8_t>(1U << (random() % 8));
      break;
    default:
      input.resize(at);
      break;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::vector<Input> corpus = ReadCorpus(argv[1]);
  if (corpus.empty()) {
    std::fprintf(stderr, "no corpus in %s\n", argv[1]);
    return 1;
  }
  for (const Input& input : corpus) LLVMFuzzerTestOneInput(input.data(), input.size());
  std::mt19937 random(1);
  const long count = std::atol(argv[2]);
  for (long i = 0; i < count; ++i) {
    Input input = corpus[random() % corpus.size()];
    for (unsigned changes = 1 + random() % 8; changes > 0; --changes) MutateOnce(input, random);
    LLVMFuzzerTestOneInput(input.data(), input.size());
  }
  std::printf("%zu corpus inputs and %ld mutations\n", corpus.size(), count);
}
