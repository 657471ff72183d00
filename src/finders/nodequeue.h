// The node queue and the link tables: where the chain families search, and what they find. The colour
// families use the queue's first two tables for their clusters. Whichever search ran last owns all of this.
#pragma once

#include "checked.h"

namespace gradino {

// A node is a statement: the digit is in the cell, or it is not. Its parent is the node that led here, and
// its path the ancestors, oldest first. As text a path names each by its index and a comma, an index below 10
// with a leading 0 ("00,03,17,104,"); only the length of that text is ever asked for, so only that is kept.
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

/// Empties the queue.
void clearqueue();

/// How many nodes stand in the queue.
int nodecount();

/// How many ancestors a node has.
int depthof(int node);

/// How many characters an index and its comma take in a path's text.
int tokenlength(int node);

/// Puts a node with a path of that length after its parent. A twin (same cell, digit and truth) that stands
/// there already with a path shorter than the parent's plus 5 characters refuses it; one with a longer path
/// is told in a message box.
enum class Added { yes, refused, full };
Added addnode(int cell, int digit, bool flag, int parent, int path);

/// The same for a statement that no node has made yet, where there is place for it.
void addfirst(int cell, int digit, bool flag, int parent, int path);

/// The hypothesis, node 0, which is its own parent.
void addhypothesis(int cell, int digit, int path);

}  // namespace gradino
