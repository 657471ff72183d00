// Whatever the bytes, an old library is read or refused with a sentence, and its file stays as it is.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

#include "jetfile.h"
#include "library.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gradino;
  namespace fs = std::filesystem;
  static const std::string path = fs::temp_directory_path() / ("jetfile_fuzz." + std::to_string(getpid()));
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::ofstream(path, std::ios::binary) << bytes;
  try {
    readjet(path, [](const LibraryRow&) {});
  } catch (const LibraryFailure& failure) {
    if (std::string(failure.what()).find(path) == std::string::npos) abort();
  }
  std::ifstream file(path, std::ios::binary);
  if (std::string(std::istreambuf_iterator<char>(file), {}) != bytes) abort();
  return 0;
}
