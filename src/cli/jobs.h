// Both cores are used by processes.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace gradino::cli {

/// Hands over work(item) for each item, in the order of the items, done by `jobs` worker processes. False: a
/// worker ended before its work, which standard error was told.
bool eachinorder(const std::vector<std::string>& items, int jobs,
                 const std::function<std::string(const std::string& item)>& work,
                 const std::function<void(const std::string& result)>& use);

/// Prints the results so; a line of progress says that the items are `what`.
bool printinorder(const std::vector<std::string>& items, int jobs, const char* what,
                  const std::function<std::string(const std::string& item)>& work);

}  // namespace gradino::cli
