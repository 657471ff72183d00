// The node queue and the link tables: where the chain families search, and what they find. The colour families
// use the queue's first two tables for their clusters. Whichever search ran last owns all of this.
#pragma once

#include "checked.h"

namespace gradino {

// A node is a statement: the digit is in the cell, or it is not. Its parent is the node that led here, and its
// path the ancestors, oldest first. As text a path names each by its index and a comma, an index below 10 with
// a leading 0 ("00,03,17,104,"); only the length of that text is ever asked for, so only that is kept.
inline constinit Table<int, 0, 260> chaincell{"chaincell"};
inline constinit Table<int, 0, 260> chaindigit{"chaindigit"};
inline constinit Table<bool, 0, 260> chainflag{"chainflag"};
inline constinit Table<int, 0, 260> chainparent{"chainparent"};
inline constinit Table<int, 0, 260> chainpath{"chainpath"};  ///< length of the path's text

// The best chain: step 0 is the hypothesis.
inline constinit Table<int, 0, 40> linkcell{"linkcell"};
inline constinit Table<int, 0, 40> linkdigit{"linkdigit"};
inline constinit Table<bool, 0, 40> linkflag{"linkflag"};
inline constinit Byte chainlength{"chainlength"};  ///< index of the last step

}  // namespace gradino
