// Any bytes are either read as an old library or refused with a sentence, and the file stays unchanged.
//
// The first byte of an input chooses: 0: the rest is the file; otherwise the rest is a list of changes to one
// of two real files, four bytes each: the new byte and its position, low byte first.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <unistd.h>

#include "jetfile.h"
#include "library.h"

namespace {

std::string bytesof(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string filefrom(std::string_view input) {
  static const std::string whole[] = {bytesof(TESTDATA "/library/old-library-V2000.mdb"),
                                      bytesof(TESTDATA "/library/old-library-V2003.mdb")};
  if (input.empty()) return {};
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(input[at]); };
  if (byte(0) == 0) return std::string(input.substr(1));
  std::string changed = whole[byte(0) % 2];
  for (std::size_t at = 1; at + 4 <= input.size(); at += 4) {
    const std::size_t place = byte(at + 1) | byte(at + 2) << 8 | byte(at + 3) << 16;
    changed[place % changed.size()] = input[at];
  }
  return changed;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gradino;
  static const std::string path =
      std::filesystem::temp_directory_path() / ("jetfile_fuzz." + std::to_string(getpid()));
  const std::string bytes = filefrom({reinterpret_cast<const char*>(data), size});
  std::ofstream(path, std::ios::binary) << bytes;
  try {
    readjet(path, [](const LibraryRow&) {});
  } catch (const LibraryFailure& failure) {
    if (std::string_view(failure.what()).find(path) == std::string_view::npos) abort();
  }
  if (bytesof(path) != bytes) abort();
  return 0;
}
