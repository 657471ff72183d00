// Old libraries: desktop databases of the Jet family. They are only ever read.
#pragma once

#include <functional>
#include <string>

#include "libraryrow.h"

namespace gradino {

/// True if the first bytes of the file say that it is a desktop database of the Jet family. Also false for a
/// file that can't be read.
bool isjetfile(const std::string& path);

/// Hands over each row of the table `schema`: numbers as decimal text, null as the empty text. Throws
/// LibraryFailure when there is no such file, it is encrypted or has a password, is damaged or cut short, or
/// lacks the table or one of its fields. Damage may show only after some rows have been handed over. What
/// `use` throws ends the reading and is passed on.
void readjet(const std::string& path, const std::function<void(const LibraryRow&)>& use);

}  // namespace gradino
