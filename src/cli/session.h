// The console program as a host: each puzzle runs in a freshly started program.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace gradino::cli {

using Json = nlohmann::ordered_json;

/// What the program said while it ran.
struct Session {
  std::vector<std::string> boxes;    ///< the message boxes, in order
  std::optional<std::string> fault;  ///< the report of a run-time fault
};

/// Sets the language, "en" or "it", of messages until a session starts in its own.
void speak(const std::string& language);

/// A freshly started program in a language, "en" or "it"; its message boxes go to session.boxes.
void startsession(Session& session, const std::string& language);

/// Runs an event; a fault ends it and is kept in session.fault.
void runguarded(Session& session, const std::function<void()>& event);

/// Puts a puzzle (81 symbols) on the board and counts its solutions, as opening a file does after reading it.
void putup(const std::string& puzzle);

/// Puts a puzzle on the board and shows it, as opening a file does, but without grading it.
void putonshow(const std::string& puzzle);

/// A text of a box, split at its line breaks.
std::vector<std::string> linesof(const std::string& text);

// The board as JSON.
std::string valuestext();  ///< 81 digits of cellvalue
Json candsjson();          ///< 81 masks
Json countersjson();       ///< levelcount 1 to 21
Json logjson();            ///< the log text split at its line breaks

}  // namespace gradino::cli
