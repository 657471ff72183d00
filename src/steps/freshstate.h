// What a program just started begins with.
#pragma once

namespace gradino {

/// Boxes, log, grade, light and step as in a program just started.
void freshstate();

}  // namespace gradino
