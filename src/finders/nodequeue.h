// The node queue, in which the chain searches work, and the link tables, which hold the chain they found.
// Each search overwrites what the one before has left. What is used by which:
//
//                            chaincell  chaindigit  chainflag  chainparent, chainpath  link tables
//   loops and XY-chains          x          x           x                x                  x
//   forcing chains               x          x           x                x                  x
//   Nishio                       x          x                                                       placings
//   simple colours               x                      x                                           cluster
//   X-colours                    x                      x                                           hypothesis
//
// The queue is read only by the search that fills it. The link tables outlive the search:
// steps, twins and explanations read them, always as a Chain (chain.h).
#pragma once

#include "checked.h"

namespace gradino {

// A node is a statement: the digit is in the cell, or it is not. Its parent is the node that led to it, and
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
inline constinit Byte chainlength{"chainlength"};  ///< index of the last step, by loops and XY-chains alone

/// Every slot of the link tables as before first use. The lengths stay.
void clearlinks();

/// Empties the queue.
void clearqueue();

/// The number of nodes in the queue.
int nodecount();

/// How many ancestors a node has.
int depthof(int node);

/// How many characters an index and its comma take in a path's text.
int tokenlength(int node);

/// Puts a node at the end, with a path of that length. It is refused if there is a node with the same cell,
/// digit and truth whose path is shorter than the parent's plus 5 characters. For each such node whose path
/// is longer a message box is shown.
enum class Added { yes, refused, full };
Added addnode(int cell, int digit, bool flag, int parent, int path);

/// addnode for a statement that no node makes yet, while the queue has room: nothing is checked.
void addfirst(int cell, int digit, bool flag, int parent, int path);

/// The hypothesis, node 0, which is its own parent.
void addhypothesis(int cell, int digit, int path);

}  // namespace gradino
