#pragma once

// What adds options only passes the parser on: who calls it includes <CLI/App.hpp>, which takes the
// compiler longer to read than most of the tool's sources.
namespace CLI {

class App;

}  // namespace CLI
