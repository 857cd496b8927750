// Small helpers that many parts of the engine share: colour conversions, names
// of enumerations, number formatting and stream checks.
#pragma once

#include <ios>
#include <string>

#include "Color.h"
#include "Solidness.h"
#include "ViewObjectLocation.h"

namespace mv {

// The colour's red, green and blue. CUSTOM and unknown colours leave the arguments as they are.
void colorToRGB(Color c, unsigned char& r, unsigned char& g, unsigned char& b);

// "Black" to "White"; "Unknown color" for anything else.
std::string colorToString(Color c);

// The colour of a lower-case name, "black" 0 to "white" 7; -1 for any other text.
int colorFromName(const std::string& name);

// "hard", "soft" or "spectral"; "undefined" for anything else.
std::string solidnessToString(Solidness s);

// "top-left" to "bot-right"; "unknown" for anything else.
std::string locationToString(ViewObjectLocation l);

std::string toString(int i);

// Six significant digits and no trailing zeros, as a stream writes a float.
std::string toString(float f);

// atoi's reading of a number (leading blanks skipped, text after the digits
// ignored, no digits giving 0), with values beyond an int clamped to its range.
int toInt(const std::string& text);

// "true" or "false".
const char* boolToString(bool value);
// 32 characters, most significant bit first.
std::string toBinaryString(unsigned u);

// 0 if the stream is good; else -1, with a line in the log that says what went wrong and where.
int checkStream(const char* where, const std::ios& stream);

}  // namespace mv
