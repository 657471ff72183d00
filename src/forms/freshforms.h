#pragma once

namespace gradino {

/// Boxes, log, grade, light and step as in a program just started.
void freshforms();

}  // namespace gradino
