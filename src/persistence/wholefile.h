// Files that appear complete or not at all: made under another name, flushed to the disk, then renamed.
#pragma once

#include <filesystem>
#include <system_error>

namespace gradino {

/// A lock on the folder of a file: one program at a time has it, the others wait. It ends with the program at
/// the latest, however that ends. The file made under the lock has a fixed name, so one found under that name
/// was left by a program that was killed.
class FolderClaim {
 public:
  explicit FolderClaim(const std::filesystem::path& file);
  ~FolderClaim();
  FolderClaim(const FolderClaim&) = delete;
  FolderClaim& operator=(const FolderClaim&) = delete;

 private:
  int folder_;  ///< below 0: it can't be opened, which making a file there will report
};

/// The temporary name of a file.
std::filesystem::path madename(const std::filesystem::path& file);

/// Flushes a file to the disk. Only this may reveal that the disk is full.
std::error_code flush(const std::filesystem::path& file);
/// The same for the folder of a file, as far as the file system can do that.
void flushnames(const std::filesystem::path& file);

/// Flushes a file and renames it to another, which it replaces.
std::error_code putinplace(const std::filesystem::path& made, const std::filesystem::path& file);

/// Copies a file. On an error no copy is left.
std::error_code copywhole(const std::filesystem::path& from, const std::filesystem::path& to);

/// An unused name beside the file: its own with the word after the stem, then "2", "3", ...
std::filesystem::path freename(const std::filesystem::path& file, const char* word);

}  // namespace gradino
