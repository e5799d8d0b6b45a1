// Gives every parser the inputs that are kept for its fuzzer, among them all that once broke it.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#define PARSER(name) extern "C" int fuzz_##name(const std::uint8_t* data, std::size_t size);
ORVEX_PARSERS
#undef PARSER

int main() {
  const struct {
    const char* name;
    int (*parse)(const std::uint8_t*, std::size_t);
  } parsers[]{
#define PARSER(name) {#name, &fuzz_##name},
      ORVEX_PARSERS
#undef PARSER
  };
  for (const auto& [name, parse] : parsers) {
    int inputs = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(ORVEX_CORPORA) / name)) {
      std::ifstream stream(file.path(), std::ios::binary);
      // Of exactly this size, so that the sanitizer sees a step beyond it.
      const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
      std::printf("%s\n", file.path().c_str());
      std::fflush(stdout);
      parse(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++inputs;
    }
    if (inputs == 0) return 1;
  }
  return 0;
}
