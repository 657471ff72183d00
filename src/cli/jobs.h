// Both cores are used by processes.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace gradino::cli {

using NumberedWork = std::function<std::string(std::size_t number)>;

/// Hands over work(number) for each number from 0 to below `count`, in their order, done by `jobs` worker
/// processes. False: a worker ended before its work, which standard error was told.
bool eachinorder(std::size_t count, int jobs, const NumberedWork& work,
                 const std::function<void(const std::string& result)>& use);

/// Prints the results so; a line of progress says that so many are `what`.
bool printinorder(std::size_t count, int jobs, std::string_view what, const NumberedWork& work);

}  // namespace gradino::cli
