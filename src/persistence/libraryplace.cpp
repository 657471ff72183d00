#include "libraryplace.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "store.h"
#include "wholefile.h"
#include "words.h"

namespace gradino {
namespace {

namespace fs = std::filesystem;

constexpr const char* filename = "schemigenerati.mdb";

constexpr Words wasnone = {R"(Il file "{file}" non era una libreria ed è conservato come "{kept}".)",
                           R"(The file "{file}" was no library and is kept as "{kept}".)"};
constexpr Words nowcopy = {" Al suo posto c'è una nuova copia della libreria fornita con il programma.",
                           " In its place stands a fresh copy of the library that came with the program."};
constexpr Words nowempty = {" Il primo schema da conservare ne comincia una nuova.",
                            " The first puzzle that is to be kept begins a new one."};
constexpr Words onlyshipped = {
    "La copia personale della libreria, \"{own}\", non può essere creata: {reason}. Si usa quella fornita con il "
    "programma, \"{file}\", che può essere solo letta: non vi si registra nulla.",
    "Your own copy of the library, \"{own}\", can't be made: {reason}. The one that came with the program, "
    "\"{file}\", is used, which can only be read: nothing is stored in it."};
constexpr Words fulldisk = {"il disco è pieno", "the disk is full"};
constexpr Words nofolder = {"la sua cartella non esiste o non può essere scritta",
                            "its folder doesn't exist or can't be written to"};

bool writable(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && std::ofstream(path, std::ios::binary | std::ios::app).is_open();
}

/// Whether files can be made there: the only sure way to know is to make one.
bool roomfor(const fs::path& path) {
  const fs::path probe = path.string() + ".probe";
  const bool made = std::ofstream(probe).is_open();
  std::error_code error;
  fs::remove(probe, error);
  return made;
}

fs::path fromenvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The folder of the platform for user data of programs.
fs::path userplace() {
#ifdef _WIN32
  const fs::path data = fromenvironment("LOCALAPPDATA");
#else
  fs::path data = fromenvironment("XDG_DATA_HOME");
  if (!data.is_absolute()) data = fromenvironment("HOME") / ".local" / "share";
#endif
  return data / "gradino" / filename;
}

std::string reasonof(const std::error_code& error) {
  if (error == std::errc::no_space_on_device) return std::string(inlanguage(fulldisk));
  for (const std::errc none :
       {std::errc::permission_denied, std::errc::operation_not_permitted, std::errc::read_only_file_system,
        std::errc::not_a_directory, std::errc::no_such_file_or_directory})
    if (error == none) return std::string(inlanguage(nofolder));
  return error.message();
}

/// There is a file that is not just a remnant: a library, or something that opening will report.
bool standing(const fs::path& file) {
  std::error_code error;
  return fs::exists(file, error) && !nolibrary(file);
}

/// Makes sure that the file is a library, or doesn't exist if there is none to copy: then opening makes it.
LibraryPlace settled(const fs::path& file, const std::optional<fs::path>& shipped) {
  LibraryPlace place{file, false, {}};
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (standing(file)) return place;
  const FolderClaim claim(file);
  if (standing(file)) return place;  // another program was faster
  fs::path kept;
  if (const bool none = nolibrary(file); !error) {
    const fs::path name = putaside(file, error);
    if (none && !error) kept = name;
  }
  if (!error && shipped) error = copywhole(*shipped, file);
  if (!kept.empty())
    place.notices.emplace_back([=, instead = error     ? Words{}
                                             : shipped ? nowcopy
                                                       : nowempty] {
      return say(wasnone, hole("file", file.string()), hole("kept", kept.string())) +
             std::string(inlanguage(instead));
    });
  if (error && shipped) {
    place.file = *shipped;
    place.onlyread = true;
    place.notices.emplace_back([=] {
      return say(onlyshipped, hole("own", file.string()), hole("reason", reasonof(error)),
                 hole("file", shipped->string()));
    });
  }
  return place;
}

}  // namespace

LibraryPlace libraryplace(const fs::path& programfolder) {
  const fs::path beside = programfolder / filename;
  const fs::path shared = programfolder.parent_path() / "share" / "gradino" / filename;
  const auto ifstanding = [](const fs::path& file) {
    return standing(file) ? std::optional(file) : std::nullopt;
  };
  std::optional<fs::path> shipped = ifstanding(shared);
  if (writable(beside) && roomfor(beside)) return settled(beside, shipped);  // SQLite makes files beside it
  if (standing(beside)) shipped = beside;
  return settled(!shipped && roomfor(beside) ? beside : userplace(), shipped);
}

}  // namespace gradino
