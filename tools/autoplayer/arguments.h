// Reading the command lines of the programs that let our player play.
#pragma once

#include <string>

// Sets `number` to the whole number that `text` is, if it is one of at least
// `least` with nothing after it; otherwise answers false and leaves it.
bool readWholeNumber(const std::string& text, int least, int& number);
