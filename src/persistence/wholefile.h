// Files that appear whole or not at all: made under another name, flushed to the disk, then renamed.
#pragma once

#include <filesystem>
#include <system_error>

namespace gradino {

/// One program at a time has this claim on the folder of a file; the others wait for it. It ends with the
/// program at the latest, however that ends. What is made beside the file under the claim has one name, and
/// what is found under that name was left by a program that was killed.
class FolderClaim {
 public:
  explicit FolderClaim(const std::filesystem::path& file);
  ~FolderClaim();
  FolderClaim(const FolderClaim&) = delete;
  FolderClaim& operator=(const FolderClaim&) = delete;

 private:
  int folder_;  ///< below 0: it can't be opened, which who makes a file there will tell
};

/// The name under which a file is made.
std::filesystem::path madename(const std::filesystem::path& file);

/// Waits until the disk has what was written into a file. A full disk may come to light only here.
std::error_code flush(const std::filesystem::path& file);
/// The same for the names in the folder of a file, as far as the disk can do that.
void flushnames(const std::filesystem::path& file);

/// Flushes a file and gives it another's name and place.
std::error_code putinplace(const std::filesystem::path& made, const std::filesystem::path& file);

/// Copies a file. After an error nothing is left of the copy.
std::error_code copywhole(const std::filesystem::path& from, const std::filesystem::path& to);

/// A name beside the file that nobody has yet: its own with the word behind the stem, then "2", "3", ...
std::filesystem::path freename(const std::filesystem::path& file, const char* word);

}  // namespace gradino
