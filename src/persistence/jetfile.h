// Old libraries: desktop databases of the Jet family. They are only ever read.
#pragma once

#include <functional>
#include <string>

#include "libraryrow.h"

namespace gradino {

/// True when the bytes at the file's head say that it is a desktop database of the Jet family. False too for
/// a file that can't be read.
bool isjetfile(const std::string& path);

/// Hands over each row of the table `schema`: numbers as decimal text, null as the empty text. Throws
/// LibraryFailure when there is no such file, it is encrypted or has a password, is damaged or cut short, or
/// lacks the table or one of its fields. The damage may come to light after rows that were handed over
/// already. What `use` throws ends the reading and is passed on.
void readjet(const std::string& path, const std::function<void(const LibraryRow&)>& use);

}  // namespace gradino
