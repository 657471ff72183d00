// The search that loops and XY-chains share: the shortest chain of consequences from a false hypothesis to
// its own negation.
#pragma once

namespace gradino {

/// A chain this long is none.
inline constexpr int nochain = 20;

/// Where a chain may go.
enum class ChainRules {
  loops,     ///< anywhere; after a Nishio step the start is widened to all candidates of the pair
  xychains,  ///< through cells with two candidates only
};

/// Starts from every conjugate pair (a house with two places for a digit): of its two cells the one that
/// solutiontext says is not the digit's. An empty solutiontext is unequal to every digit, so then it is
/// always the first. Leaves the chain in the link tables and its last index in chainlength; nochain: there is
/// none. startdigit and startcell are the hypothesis. Of chains of equal length the first found stays.
void scanchain(ChainRules rules, int& startdigit, int& startcell);

}  // namespace gradino
