// Several cores are used by several processes.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace gradino::cli {

using NumberedWork = std::function<std::string(std::size_t number)>;

/// Hands over work(number) for each number from 0 up to `count`, exclusive, in order; the work is done by
/// `jobs` processes. False: a worker ended too early, as standard error says.
bool eachinorder(std::size_t count, int jobs, const NumberedWork& work,
                 const std::function<void(const std::string& result)>& use);

/// Prints the results in order; the progress line says how many are `what`.
bool printinorder(std::size_t count, int jobs, std::string_view what, const NumberedWork& work);

}  // namespace gradino::cli
