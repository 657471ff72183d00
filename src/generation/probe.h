// The satisfiability probe: can the board still be completed at all? It has an order of its own and never
// says which completion comes first; the counter asks it before it walks into a branch.
#pragma once

namespace gradino {

/// Forgets the completion found last. Before the first probe of a count: between two probes without this only
/// empty cells may have been filled, or cells filled since been emptied again.
void newprobe();

/// True when the empty cells of cellvalue (0 to 9 in each cell) can all be filled so that no digit filled in
/// stands twice in a house or meets an equal one that is there already. Digits that already clash with each
/// other are not looked at. Changes no table; microseconds on most boards.
bool completable();

}  // namespace gradino
