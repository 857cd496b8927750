// Reading sprite files of both formats: what loads, and for each kind of
// damage the exact lines that tell the author what is wrong and where.
#include <gtest/gtest.h>

#include <regex>
#include <vector>

#include "LogManager.h"
#include "ResourceManager.h"
#include "ResourceTest.h"

namespace {

using mv_test::fileText;
using Lines = std::vector<std::string>;

const std::string NOT_LOADED = "RM::loadSprite(): Sprite 'ship' NOT loaded.";
const std::string GETLINE_EOF = "getLine(): Error! Unexpected end of file.";

const std::initializer_list<std::string> SIMPLE_SHIP = {"2",    "3",    "2",   "4",  "red",
                                                        "/#\\", "\\#/", "|#|", "|#|"};

// A robust file from the lines of its three blocks.
std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

std::string robust(const Lines& header, const Lines& body, const Lines& footer = {"version 1"}) {
  return "<HEADER>\n" + joined(header) + "</HEADER>\n<BODY>\n" + joined(body) +
         "</BODY>\n<FOOTER>\n" + joined(footer) + "</FOOTER>\n";
}

const Lines SHIP_HEADER = {"frames 2",  "width 3",        "height 2",
                           "color red", "transparency #", "slowdown 4"};
const Lines SHIP_BODY = {"/#\\", "\\#/", "end", "|#|", "|#|", "end"};

class SpriteFile : public mv_test::ResourceTest {
 protected:
  mv::Sprite* ship() const { return mv::ResourceManager::getInstance().getSprite("ship"); }

  // Each file's load fails and logs exactly the expected lines.
  void expectRefused(const std::vector<std::pair<std::string, Lines>>& cases) {
    for (const auto& [contents, expected] : cases) {
      SCOPED_TRACE("file:\n" + contents);
      EXPECT_EQ(loadSprite(contents), -1);
      EXPECT_EQ(logged, expected);
    }
    EXPECT_EQ(ship(), nullptr) << "no failed load leaves a sprite behind";
  }
};

// Everything a sprite holds, in one line.
std::string describe(const mv::Sprite* sprite) {
  std::string text = sprite->getLabel() + " " + std::to_string(sprite->getFrameCount()) + " of " +
                     std::to_string(sprite->getWidth()) + "x" +
                     std::to_string(sprite->getHeight()) + " slowdown " +
                     std::to_string(sprite->getSlowdown()) + " color " +
                     std::to_string(sprite->getColor()) + " transparency " +
                     std::to_string(sprite->getTransparency());
  for (int i = 0; i < sprite->getFrameCount(); i++) {
    const mv::Frame& frame = sprite->getFrame(i);
    text += " " + std::to_string(frame.getWidth()) + "x" + std::to_string(frame.getHeight()) + ":" +
            frame.getString();
  }
  return text;
}

std::string withCarriageReturns(const std::string& text) {
  return std::regex_replace(text, std::regex("\n"), "\r\n");
}

TEST_F(SpriteFile, BothFormatsLoadTheSameShipQuietlyWithEitherLineEnd) {
  const std::string simple = fileText(SIMPLE_SHIP);
  const std::string robust_text = robust(SHIP_HEADER, SHIP_BODY);
  for (bool carriage_returns : {false, true}) {
    SCOPED_TRACE(carriage_returns ? "CR LF" : "LF");
    mv::ResourceManager& resources = mv::ResourceManager::getInstance();
    ASSERT_EQ(loadSprite(carriage_returns ? withCarriageReturns(simple) : simple), 0);
    EXPECT_EQ(logged, Lines{}) << "a good file writes nothing at log level 0";
    EXPECT_EQ(describe(ship()),
              "ship 2 of 3x2 slowdown 4 color 1 transparency 0 3x2:/#\\\\#/ 3x2:|#||#|");
    resources.shutDown();
    resources.startUp();

    ASSERT_EQ(loadSprite(carriage_returns ? withCarriageReturns(robust_text) : robust_text), 0);
    EXPECT_EQ(logged, Lines{});
    EXPECT_EQ(describe(ship()),
              "ship 2 of 3x2 slowdown 4 color 1 transparency 35 3x2:/#\\\\#/ 3x2:|#||#|");
    resources.shutDown();
    resources.startUp();
  }
}

TEST_F(SpriteFile, TheFirstLineTellsTheFormat) {
  expectRefused({
      {"",
       {GETLINE_EOF, "RM::loadSprite(): Error! Unknown sprite file format.",
        "RM::loadSprite(): First line is ''.", NOT_LOADED}},
      {"0\n",
       {"RM::loadSprite(): Error! Unknown sprite file format.",
        "RM::loadSprite(): First line is '0'.", NOT_LOADED}},
      {"frames 2\n",
       {"RM::loadSprite(): Error! Unknown sprite file format.",
        "RM::loadSprite(): First line is 'frames 2'.", NOT_LOADED}},
      {"<HEADER>",
       {GETLINE_EOF, "RM::loadSprite(): Error! Unknown sprite file format.",
        "RM::loadSprite(): First line is ''.", NOT_LOADED}},
  });
  EXPECT_EQ(loadSprite(fileText({"1 frame", "2", "1", "0", "green", "ab"})), 0)
      << "digits followed by text make a simple file";
  EXPECT_EQ(ship()->getFrameCount(), 1);
  EXPECT_EQ(ship()->getColor(), mv::GREEN);
}

TEST_F(SpriteFile, SimpleHeaderItemsAreRequiredInOrderAndChecked) {
  const std::string eof = "RM::loadSimpleSprite(): Error! Unexpected end of file.";
  expectRefused({
      {"2\n", {GETLINE_EOF, eof, "\tMissing width (an integer).", NOT_LOADED}},
      {"2\n\n", {eof, "\tMissing width (an integer).", NOT_LOADED}},
      {"2\n3\n", {GETLINE_EOF, eof, "\tMissing height (an integer).", NOT_LOADED}},
      {"2\n3\n2\n", {GETLINE_EOF, eof, "\tMissing slowdown (an integer).", NOT_LOADED}},
      {"2\n3\n2\n4\n", {GETLINE_EOF, eof, "\tMissing color (a string).", NOT_LOADED}},
      {"2\n0\n", {"RM::loadSimpleSprite(): Error line 2! Width is '0'.", NOT_LOADED}},
      {"2\n3\nhigh\n", {"RM::loadSimpleSprite(): Error line 3! Height is 'high'.", NOT_LOADED}},
      {"2\n3\n2\n-1\n", {"RM::loadSimpleSprite(): Error line 4! Slowdown is '-1'.", NOT_LOADED}},
      {"2\n3\n2\n4\nRed\n",
       {"RM::loadSimpleSprite(): Error line 5! Unrecognized color 'Red'.",
        "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan or white.", NOT_LOADED}},
      {"2\n3\n2\n4\ndefault\n",
       {"RM::loadSimpleSprite(): Error line 5! Unrecognized color 'default'.",
        "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan or white.", NOT_LOADED}},
  });
}

TEST_F(SpriteFile, SimpleFilesAskingForAbsurdSizesAreRefusedBeforeAnythingIsMade) {
  expectRefused({
      {"20000\n",
       {"RM::loadSimpleSprite(): Error line 1! Number of frames is 20000, more than 10000.",
        NOT_LOADED}},
      {"99999999999999999999\n",
       {"RM::loadSimpleSprite(): Error line 1! Number of frames is 2147483647, more than 10000.",
        NOT_LOADED}},
      {"1\n1001\n",
       {"RM::loadSimpleSprite(): Error line 2! Width is 1001, more than 1000.", NOT_LOADED}},
      {"1\n1\n5000\n",
       {"RM::loadSimpleSprite(): Error line 3! Height is 5000, more than 1000.", NOT_LOADED}},
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
      {joined({"1", "1000", "1", "0", "red", wide}), 1, 1000, 1},
      {joined({"1", "1", "1000", "0", "red"}) + joined(tall), 1, 1, 1000},
      {joined({"10000", "1", "1", "0", "red"}) + joined(Lines(10000, "f")), 10000, 1, 1},
      {robust({"frames 1", "width 1000", "height 1"}, {wide, "end"}), 1, 1000, 1},
      {robust({"frames 1", "width 1", "height 1000"}, tall_frame), 1, 1, 1000},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.frames << " of " << c.width << "x" << c.height);
    ASSERT_EQ(loadSprite(c.file, std::to_string(&c - cases)), 0) << testing::PrintToString(logged);
    const mv::Sprite* sprite =
        mv::ResourceManager::getInstance().getSprite(std::to_string(&c - cases));
    EXPECT_EQ(sprite->getFrameCount(), c.frames);
    EXPECT_EQ(sprite->getFrame(c.frames - 1).getString().size(), 1u * c.width * c.height);
  }
}

TEST_F(SpriteFile, SimpleRowsMustBeAllThereEachOfTheWidthAndNothingAfter) {
  expectRefused({
      {fileText({"2", "3", "2", "4", "red", "/#\\", "\\#", "|#|", "|#|"}),
       {"RM::loadSimpleSprite(): Error line 7!", "\tLine  7: '\\#'", "\tWidth is 2, expected 3.",
        NOT_LOADED}},
      {fileText(SIMPLE_SHIP).substr(0, fileText(SIMPLE_SHIP).size() - 1),
       {GETLINE_EOF, "RM::loadSimpleSprite(): Error! Unexpected end of file.",
        "\tReading frame 2 of 2, row 2 of 2.", NOT_LOADED}},
      {fileText({"2", "3", "2", "4", "red", "/#\\", "\\#/"}),
       {GETLINE_EOF, "RM::loadSimpleSprite(): Error! Unexpected end of file.",
        "\tReading frame 2 of 2, row 1 of 2.", NOT_LOADED}},
      {fileText(SIMPLE_SHIP) + "\n",
       {"RM::loadSimpleSprite(): Error line 10!", "\tExtra file data: ''", NOT_LOADED}},
      {fileText(SIMPLE_SHIP) + "more\r\n",
       {"RM::loadSimpleSprite(): Error line 10!", "\tExtra file data: 'more'", NOT_LOADED}},
      {fileText(SIMPLE_SHIP) + "x",
       {"RM::loadSimpleSprite(): Error line 10!", "\tExtra file data: 'x'", NOT_LOADED}},
  });
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
  EXPECT_EQ(ship()->getFrameCount(), 1);
  EXPECT_EQ(ship()->getColor(), mv::WHITE);
  EXPECT_EQ(ship()->getTransparency(), 0);
  EXPECT_EQ(ship()->getSlowdown(), 0);

  // A quoted blank and a bare blank both make the space transparent.
  for (const std::string value : {"\" \"", " "}) {
    ASSERT_EQ(loadSprite(robust({"frames 1", "width 1", "height 1", "color default",
                                 "transparency " + value},
                                {"o", "end"}),
                         value),
              0);
    const mv::Sprite* blank = mv::ResourceManager::getInstance().getSprite(value);
    EXPECT_EQ(blank->getTransparency(), ' ');
    EXPECT_EQ(blank->getColor(), mv::WHITE);
  }
}

TEST_F(SpriteFile, RobustHeadersMustNameSensibleSizesAndAKnownColor) {
  const Lines body = {"o", "end"};
  expectRefused({
      {robust({"width 1", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! Missing 'frames' in header.", NOT_LOADED}},
      {robust({"frames -1", "width 1", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! Missing 'frames' in header.", NOT_LOADED}},
      {robust({"frames 1", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! Missing 'width' in header.", NOT_LOADED}},
      {robust({"frames 1", "width 1"}, body),
       {"RM::loadRobustSprite(): Error! Missing 'height' in header.", NOT_LOADED}},
      {robust({"frames -3", "width 1", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! 'frames' is -3 in header, outside 0 to 10000.",
        NOT_LOADED}},
      {robust({"frames 2000000000", "width 1", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! 'frames' is 2000000000 in header, outside 0 to 10000.",
        NOT_LOADED}},
      {robust({"frames 1", "width -7", "height 1"}, body),
       {"RM::loadRobustSprite(): Error! 'width' is -7 in header, outside 0 to 1000.", NOT_LOADED}},
      {robust({"frames 1", "width 1", "height 1001"}, body),
       {"RM::loadRobustSprite(): Error! 'height' is 1001 in header, outside 0 to 1000.",
        NOT_LOADED}},
      {robust({"frames 1", "width 1", "height 1", "color purple"}, body),
       {"RM::loadRobustSprite(): Error! Unrecognized color 'purple'.",
        "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan and white.", NOT_LOADED}},
      {robust({"frames 1", "width 1", "height 1", "colorful red"}, body),
       {"RM::loadRobustSprite(): Error! Unrecognized color 'ul red'.",
        "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan and white.", NOT_LOADED}},
  });
}

TEST_F(SpriteFile, RobustBlocksMustStandInOrderClosedAndWithoutEmptyLines) {
  const std::string ship_text = robust(SHIP_HEADER, SHIP_BODY);
  std::string misnamed = ship_text;
  misnamed.replace(misnamed.find("<BODY>"), 6, "<BOD>");
  std::string with_gap = ship_text;
  with_gap.replace(with_gap.find("width 3\n"), 8, "width 3\n\n");
  expectRefused({
      {misnamed, {"readData(): Error line 9! Expected '<BODY>', have '<BOD>'.", NOT_LOADED}},
      {with_gap, {"readData(): Error! Stop at line 3, never encountered '</HEADER>'.", NOT_LOADED}},
      {ship_text.substr(0, ship_text.size() - 1),
       {GETLINE_EOF, "readData(): Error! Stop at line 17, never encountered '</FOOTER>'.",
        NOT_LOADED}},
      {robust({"frames 0", "width 3", "height 2"}, {}),
       {"readData(): Error line 7! Nothing between '<BODY>' and '</BODY>'.", NOT_LOADED}},
      {robust(SHIP_HEADER, SHIP_BODY, {"versions"}),
       {"RM::loadRobustSprite(): Error! Missing 'version' in FOOTER (line 19).", NOT_LOADED}},
      {robust(SHIP_HEADER, SHIP_BODY, {"version"}),
       {"RM::loadRobustSprite(): Error! Missing 'version' in FOOTER (line 19).", NOT_LOADED}},
  });
  EXPECT_EQ(loadSprite(ship_text + "anything at all"), 0) << "nothing after the footer is read";
}

TEST_F(SpriteFile, RobustFramesNeedTheirRowsAndTheirEndAndNothingMore) {
  expectRefused({
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "end", "|#|", "|#", "end"}),
       {"\tError! Line 14: Line length is 2 (frame width is 3).", "\tLine 14: '|#'",
        "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}},
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "END", "|#|", "|#|", "end"}),
       {"\tError! Line 16: Expected 'end'.", "\tLine 13: 'END'",
        "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}},
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "end", "|#|", "|#|"}),
       {"\tError! Line 15: No more frame data before 'end'.",
        "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}},
      {robust(SHIP_HEADER, {"/#\\", "\\#/", "end"}),
       {"\tError! Line 13: No more frame data before 'end'.",
        "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}},
      {robust({"frames 0", "width 3", "height 2"}, SHIP_BODY),
       {"RM::loadRobustSprite(): Error! Extra BODY:", "\tLine 13: /#\\", "\tLine 14: \\#/",
        "\tLine 15: end", "\tLine 16: |#|", "\tLine 17: |#|", "\tLine 18: end", NOT_LOADED}},
      {robust({"frames 1", "width 3", "height 0"}, {"end"}),
       {"RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}},
  });
}

TEST_F(SpriteFile, RowTextIsNeverTakenForAFormat) {
  ASSERT_EQ(loadSprite(robust({"frames 1", "width 3", "height 2"}, {"end", "%n%", "end"}), "rows"),
            0);
  EXPECT_EQ(mv::ResourceManager::getInstance().getSprite("rows")->getFrame(0).getString(),
            "end%n%");

  expectRefused({{robust({"frames 1", "width 3", "height 1"}, {"%s%", "%n%"}),
                  {"\tError! Line 9: Expected 'end'.", "\tLine 9: '%n%'",
                   "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}}});
}

}  // namespace
