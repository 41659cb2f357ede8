// Runs a target over each file of the folders given, and over as many inputs made of them by chance: its
// corpus as a test, with any compiler.
//   replay_TARGET FOLDER... [--changed N]
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_input.h"

namespace {

constexpr std::size_t kLongest = 4096;

void RunTarget(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

// The same numbers each time, so that a failure comes again.
class Chance {
 public:
  std::size_t Below(std::size_t end) { return end == 0 ? 0 : numbers_() % end; }

 private:
  std::mt19937 numbers_{1};
};

// Some bytes turned round, left out, repeated, or taken from another input.
std::string Changed(const std::vector<std::string>& inputs, Chance& chance) {
  std::string text = inputs[chance.Below(inputs.size())];
  for (std::size_t changes = 1 + chance.Below(4); changes > 0; --changes) {
    const std::size_t at = chance.Below(text.size() + 1);
    const std::size_t length = chance.Below(std::min<std::size_t>(text.size() - at, 16) + 1);
    switch (chance.Below(5)) {
      case 0:
        if (at < text.size()) text[at] = static_cast<char>(chance.Below(256));
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, text.substr(at, length));
        break;
      case 3:
        text.insert(at, 1, "';\n%[]()@0-"[chance.Below(11)]);
        break;
      default: {
        const std::string& other = inputs[chance.Below(inputs.size())];
        text.insert(at, other.substr(chance.Below(other.size() + 1), 24));
      }
    }
  }
  text.resize(std::min(text.size(), kLongest));
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> inputs;
  int changed = 0;
  for (int i = 1; i < argc; ++i) {
    if (std::string_view(argv[i]) == "--changed" && i + 1 < argc) {
      changed = std::atoi(argv[++i]);
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
      std::cerr << entry.path().filename().string() << "\n";  // the one that ends the program is named last
      RunTarget(inputs.back());
    }
  }
  if (inputs.empty()) return 1;
  std::sort(inputs.begin(), inputs.end());  // folders have no order of their own
  Chance chance;
  for (int i = 0; i < changed; ++i) {
    const std::string input = Changed(inputs, chance);
    // What ends the program stands here, to become a file of the corpus.
    if (const char* path = std::getenv("GOODS_FUZZ_LAST")) std::ofstream(path, std::ios::binary) << input;
    RunTarget(input);
  }
  std::cout << inputs.size() << " inputs of the corpus, " << changed << " made of them\n";
  return 0;
}
