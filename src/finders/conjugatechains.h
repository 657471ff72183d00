// The search that loops and XY-chains share: the shortest chain of consequences from a false hypothesis to
// its own negation.
#pragma once

#include <optional>

#include "chain.h"

namespace gradino {

/// What chainlength holds while there is no chain; a chain of that many steps counts as none.
inline constexpr int nochain = 20;

/// Where a chain may go.
enum class ChainRules {
  loops,     ///< anywhere; after a Nishio step the start is widened to all candidates of the pair
  xychains,  ///< through cells with two candidates only
};

/// Starts from every conjugate pair (a house with two places for a digit), in that of its two cells where the
/// solution doesn't have the digit; without a stored solution in the first. Leaves the chain in the link
/// tables, its last index in chainlength and its digit in stepdigit, 81 if there is none. Of chains of equal
/// length the first found stays.
std::optional<Chain> scanchain(ChainRules rules);

/// The chain as the last of these searches left it, for the explanations. Forcing chains use the same link
/// tables, so a command during the wait of a step can put its own there.
std::optional<Chain> chainonshow();

/// Leaves no chain, for a program just started.
void forgetchain();

}  // namespace gradino
