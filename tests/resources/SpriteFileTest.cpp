// Reading sprite files of both formats: what loads, and for each kind of
// damage the exact lines that tell the author what is wrong and where.
#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <vector>

#include "LogManager.h"
#include "ResourceManager.h"
#include "ResourceTest.h"

namespace {

using mv_test::fileText;
using Lines = std::vector<std::string>;

const std::string NOT_LOADED = "RM::loadSprite(): Sprite 'ship' NOT loaded.";
const std::string GETLINE_EOF = "getLine(): Error! Unexpected end of file.";

const Lines SIMPLE_SHIP = {"2", "3", "2", "4", "red", "/#\\", "\\#/", "|#|", "|#|"};

// A robust file from the lines of its three blocks.
std::string robust(const Lines& header, const Lines& body, const Lines& footer = {"version 1"}) {
  return "<HEADER>\n" + fileText(header) + "</HEADER>\n<BODY>\n" + fileText(body) +
         "</BODY>\n<FOOTER>\n" + fileText(footer) + "</FOOTER>\n";
}

const Lines SHIP_HEADER = {"frames 2",  "width 3",        "height 2",
                           "color red", "transparency #", "slowdown 4"};
const Lines SHIP_BODY = {"/#\\", "\\#/", "end", "|#|", "|#|", "end"};

// The lines that follow an unknown colour name.
Lines unknownColor(const std::string& first_line, const std::string& last_word) {
  return {first_line, "  Valid colors are: black, red, green, yellow,",
          "                    blue, magenta, cyan " + last_word + " white."};
}

class SpriteFile : public mv_test::ResourceTest {
 protected:
  mv::Sprite* sprite(const std::string& label = "ship") const {
    return mv::ResourceManager::getInstance().getSprite(label);
  }

  // Each file's load fails and logs exactly the expected lines, then that the
  // sprite was not loaded.
  void expectRefused(const std::vector<std::pair<std::string, Lines>>& cases) {
    for (const auto& [contents, expected] : cases) {
      SCOPED_TRACE("file:\n" + contents);
      EXPECT_EQ(loadSprite(contents), -1);
      Lines with_end = expected;
      with_end.push_back(NOT_LOADED);
      EXPECT_EQ(logged, with_end);
    }
    EXPECT_EQ(sprite(), nullptr) << "no failed load leaves a sprite behind";
  }
};

// Everything a sprite holds, in one line.
std::string describe(const mv::Sprite* sprite) {
  std::ostringstream text;
  text << sprite->getLabel() << " " << sprite->getFrameCount() << " of " << sprite->getWidth()
       << "x" << sprite->getHeight() << " slowdown " << sprite->getSlowdown() << " color "
       << sprite->getColor() << " transparency " << static_cast<int>(sprite->getTransparency());
  for (int i = 0; i < sprite->getFrameCount(); i++) {
    const mv::Frame& frame = sprite->getFrame(i);
    text << " " << frame.getWidth() << "x" << frame.getHeight() << ":" << frame.getString();
  }
  return text.str();
}

std::string withCarriageReturns(const std::string& text) {
  return std::regex_replace(text, std::regex("\n"), "\r\n");
}

TEST_F(SpriteFile, BothFormatsLoadTheSameShipQuietlyWithEitherLineEnd) {
  const std::string simple = fileText(SIMPLE_SHIP), robust_ship = robust(SHIP_HEADER, SHIP_BODY);
  const std::string ship = " 2 of 3x2 slowdown 4 color 1 transparency ";
  const std::string frames = " 3x2:/#\\\\#/ 3x2:|#||#|";
  const std::pair<std::string, std::string> cases[] = {
      {simple, ship + "0" + frames},
      {withCarriageReturns(simple), ship + "0" + frames},
      {robust_ship, ship + "35" + frames},
      {withCarriageReturns(robust_ship), ship + "35" + frames},
  };
  int n = 0;
  for (const auto& [file, held] : cases) {
    SCOPED_TRACE(file);
    const std::string label = "ship" + std::to_string(n++);
    ASSERT_EQ(loadSprite(file, label), 0);
    EXPECT_EQ(logged, Lines{}) << "a good file writes nothing at log level 0";
    EXPECT_EQ(describe(sprite(label)), label + held);
  }
}

TEST_F(SpriteFile, TheFirstLineTellsTheFormat) {
  const std::string unknown = "RM::loadSprite(): Error! Unknown sprite file format.";
  expectRefused({
      {"", {GETLINE_EOF, unknown, "RM::loadSprite(): First line is ''."}},
      {"0\n", {unknown, "RM::loadSprite(): First line is '0'."}},
  });
  EXPECT_EQ(loadSprite(fileText({"1 frame", "2", "1", "0", "green", "ab"})), 0)
      << "digits followed by text make a simple file";
  EXPECT_EQ(describe(sprite()), "ship 1 of 2x1 slowdown 0 color 2 transparency 0 2x1:ab");
}

TEST_F(SpriteFile, SimpleFilesNeedTheirHeaderInOrderAndEveryRowOfTheWidthAndNothingAfter) {
  const std::string ship = fileText(SIMPLE_SHIP);
  const std::string eof = "RM::loadSimpleSprite(): Error! Unexpected end of file.";
  const std::string line_10 = "RM::loadSimpleSprite(): Error line 10!";
  expectRefused({
      {"2\n", {GETLINE_EOF, eof, "\tMissing width (an integer)."}},
      {"2\n\n", {eof, "\tMissing width (an integer)."}},
      {"2\n3\n", {GETLINE_EOF, eof, "\tMissing height (an integer)."}},
      {"2\n3\n2\n", {GETLINE_EOF, eof, "\tMissing slowdown (an integer)."}},
      {"2\n3\n2\n4\n", {GETLINE_EOF, eof, "\tMissing color (a string)."}},
      {"2\n0\n", {"RM::loadSimpleSprite(): Error line 2! Width is '0'."}},
      {"2\n3\n2\n-1\n", {"RM::loadSimpleSprite(): Error line 4! Slowdown is '-1'."}},
      {"2\n3\n2\n4\nRed\n",
       unknownColor("RM::loadSimpleSprite(): Error line 5! Unrecognized color 'Red'.", "or")},
      // Absurd sizes are refused before anything is made.
      {"99999999999999999999\n",
       {"RM::loadSimpleSprite(): Error line 1! Number of frames is 2147483647, more than 10000."}},
      {"1\n1001\n", {"RM::loadSimpleSprite(): Error line 2! Width is 1001, more than 1000."}},
      // Rows short, missing, or followed by more.
      {fileText({"2", "3", "2", "4", "red", "/#\\", "\\#", "|#|", "|#|"}),
       {"RM::loadSimpleSprite(): Error line 7!", "\tLine  7: '\\#'", "\tWidth is 2, expected 3."}},
      {ship.substr(0, ship.size() - 1), {GETLINE_EOF, eof, "\tReading frame 2 of 2, row 2 of 2."}},
      {ship + "\n", {line_10, "\tExtra file data: ''"}},
      {ship + "more\r\n", {line_10, "\tExtra file data: 'more'"}},
  });
}

TEST_F(SpriteFile, SpritesExactlyAtTheSizeLimitsLoad) {
  const std::string wide(1000, 'w');
  const Lines tall(1000, "t");
  Lines tall_frame = tall;
  tall_frame.push_back("end");
  const struct {
    std::string file;
    int frames, width, height;
  } cases[] = {
      {fileText({"1", "1000", "1", "0", "red", wide}), 1, 1000, 1},
      {fileText({"1", "1", "1000", "0", "red"}) + fileText(tall), 1, 1, 1000},
      {fileText({"10000", "1", "1", "0", "red"}) + fileText(Lines(10000, "f")), 10000, 1, 1},
      {robust({"frames 1", "width 1000", "height 1"}, {wide, "end"}), 1, 1000, 1},
      {robust({"frames 1", "width 1", "height 1000"}, tall_frame), 1, 1, 1000},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.frames << " of " << c.width << "x" << c.height);
    const std::string label = std::to_string(&c - cases);
    ASSERT_EQ(loadSprite(c.file, label), 0) << testing::PrintToString(logged);
    EXPECT_EQ(sprite(label)->getFrameCount(), c.frames);
    EXPECT_EQ(sprite(label)->getFrame(c.frames - 1).getString().size(), 1u * c.width * c.height);
  }
}

TEST_F(SpriteFile, RobustHeadersTakeDefaultsAndTheLastOfRepeatedKeys) {
  mv::LogManager::getInstance().setLogLevel(1);
  ASSERT_EQ(loadSprite(robust({"frames 5", "width 1", "frames 1", "height 1", "name ship"},
                              {"o", "end"}, {"version 2", "author me"})),
            0);
  EXPECT_EQ(logged,
            (Lines{"RM::loadSprite(): Loading sprite 'sprite.txt'.",
                   "matchLineInt(): Warning! 'frames 1' matches multiple lines.",
                   "RM::loadRobustSprite(): Warning! Unused HEADER lines:", "\t'name ship'",
                   "RM::loadRobustSprite(): Warning! Unused FOOTER lines:", "\t'author me'"}));
  EXPECT_EQ(describe(sprite()), "ship 1 of 1x1 slowdown 0 color 7 transparency 0 1x1:o");

  // A quoted blank and a bare blank both make the space transparent.
  for (const std::string value : {"\" \"", " "}) {
    const Lines header = {"frames 1", "width 1", "height 1", "color default",
                          "transparency " + value};
    ASSERT_EQ(loadSprite(robust(header, {"o", "end"}), value), 0);
    EXPECT_EQ(describe(sprite(value)),
              value + " 1 of 1x1 slowdown 0 color 7 transparency 32 1x1:o");
  }
}

TEST_F(SpriteFile, RobustHeadersMustNameSensibleSizesAndAKnownColor) {
  const Lines body = {"o", "end"};
  const std::string error = "RM::loadRobustSprite(): Error! ";
  expectRefused({
      {robust({"width 1", "height 1"}, body), {error + "Missing 'frames' in header."}},
      // A written -1 reads as no number at all.
      {robust({"frames -1", "width 1", "height 1"}, body), {error + "Missing 'frames' in header."}},
      {robust({"frames 1", "height 1"}, body), {error + "Missing 'width' in header."}},
      {robust({"frames -3", "width 1", "height 1"}, body),
       {error + "'frames' is -3 in header, outside 0 to 10000."}},
      {robust({"frames 1", "width 1", "height 1001"}, body),
       {error + "'height' is 1001 in header, outside 0 to 1000."}},
      {robust({"frames 1", "width 1", "height 1", "color purple"}, body),
       unknownColor(error + "Unrecognized color 'purple'.", "and")},
      {robust({"frames 1", "width 1", "height 1", "colorful red"}, body),
       unknownColor(error + "Unrecognized color 'ul red'.", "and")},
  });
}

TEST_F(SpriteFile, RobustBlocksStandInOrderClosedAndFramesHoldTheirRowsAndEndAndNoMore) {
  const std::string ship_text = robust(SHIP_HEADER, SHIP_BODY);
  std::string misnamed = ship_text;
  misnamed.replace(misnamed.find("<BODY>"), 6, "<BOD>");
  std::string with_gap = ship_text;
  with_gap.replace(with_gap.find("width 3\n"), 8, "width 3\n\n");
  const std::string no_version =
      "RM::loadRobustSprite(): Error! Missing 'version' in FOOTER (line 19).";
  const std::string no_frame = "RM::loadRobustSprite(): Error! No frame data to add.";
  expectRefused({
      {misnamed, {"readData(): Error line 9! Expected '<BODY>', have '<BOD>'."}},
      {with_gap, {"readData(): Error! Stop at line 3, never encountered '</HEADER>'."}},
      {ship_text.substr(0, ship_text.size() - 1),
       {GETLINE_EOF, "readData(): Error! Stop at line 17, never encountered '</FOOTER>'."}},
      {robust({"frames 0", "width 3", "height 2"}, {}),
       {"readData(): Error line 7! Nothing between '<BODY>' and '</BODY>'."}},
      {robust(SHIP_HEADER, SHIP_BODY, {"versions"}), {no_version}},
      // Frames short of rows or of their end, or more of them than the header says.
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "end", "|#|", "|#", "end"}),
       {"\tError! Line 14: Line length is 2 (frame width is 3).", "\tLine 14: '|#'", no_frame}},
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "END", "|#|", "|#|", "end"}),
       {"\tError! Line 16: Expected 'end'.", "\tLine 13: 'END'", no_frame}},
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "end", "|#|", "|#|"}),
       {"\tError! Line 15: No more frame data before 'end'.", no_frame}},
      {robust({"frames 0", "width 3", "height 2"}, SHIP_BODY),
       {"RM::loadRobustSprite(): Error! Extra BODY:", "\tLine 13: /#\\", "\tLine 14: \\#/",
        "\tLine 15: end", "\tLine 16: |#|", "\tLine 17: |#|", "\tLine 18: end"}},
      {robust({"frames 1", "width 3", "height 0"}, {"end"}), {no_frame}},
      // Row text is never taken for a format.
      {robust({"frames 1", "width 3", "height 1"}, {"%s%", "%n%"}),
       {"\tError! Line 9: Expected 'end'.", "\tLine 9: '%n%'", no_frame}},
  });
  EXPECT_EQ(loadSprite(ship_text + "anything at all"), 0) << "nothing after the footer is read";
  ASSERT_EQ(loadSprite(robust({"frames 1", "width 3", "height 2"}, {"end", "%n%", "end"}), "rows"),
            0);
  EXPECT_EQ(sprite("rows")->getFrame(0).getString(), "end%n%") << "a row may read 'end'";
}

}  // namespace
