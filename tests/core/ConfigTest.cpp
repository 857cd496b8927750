#include "Config.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "ScratchDirectory.h"
#include "logLines.h"
#include "utility.h"

namespace {

using mv::Config;
using mv::match;

TEST(ConfigMatch, ParsesEntriesTheWayTheFileFormatDescribes) {
  EXPECT_EQ(match("a:1,b:2", "b"), "2");
  EXPECT_EQ(match("", "a"), "1") << "an empty text asks the table kept from the last parse";
  EXPECT_EQ(match("a : 1 ,", "a"), "1") << "white space vanishes wherever it stands";
  EXPECT_EQ(match("a:1:2", "a"), "1") << "pieces after the value are dropped";
  EXPECT_EQ(match("a,b:2", "a"), "") << "an entry without a value";
  EXPECT_EQ(match(",,a:1", "a"), "1") << "runs of commas give no empty elements";
  EXPECT_EQ(match(":5", "5"), "") << "leading colons are skipped, so 5 is the key";
  EXPECT_EQ(match("a:1,a:2", "a"), "1") << "the first entry wins";
  EXPECT_EQ(match("Key:1", "key"), "") << "keys are case-sensitive";
  EXPECT_EQ(match("a:1,:::,b:2", "b"), "") << "an element of colons alone ends the parse";
  EXPECT_EQ(match("", "a"), "1") << "...keeping the entries found before it";
  EXPECT_EQ(match("a:1", ""), "");
}

// The settings that the next case reads, in one line.
std::string settings(const Config& c) {
  std::ostringstream text;
  text << "style " << c.getWindowStyle() << " state " << c.getWindowState() << " background "
       << c.getWindowBackgroundColor() << " mouse " << c.getShowMouse() << " networking "
       << c.getNetworking() << " frame " << c.getFrameTime() << " columns "
       << c.getWindowHorizontalChars() << " font " << c.getFontScale() << " grid "
       << c.getGridWidth() << " log " << c.getLogFile();
  return text.str();
}

TEST(ConfigFile, NamedByTheEnvironmentJoinsLinesWithoutCommentsAndBadValuesKeepTheirDefault) {
  mv_test::ScratchDirectory scratch;
  scratch.write("other.txt", "frame_time:20,");
  Config& config = Config::getInstance();
  config.loadConfig();
  EXPECT_EQ(config.getFrameTime(), 33);
  EXPECT_EQ(config.match("frame_time"), "") << "nothing was loaded";

  scratch.write("mv-config.txt", "frame_time:10,");
  setenv("MORVANE_CONFIG", "other.txt", 1);
  config.loadConfig();
  EXPECT_EQ(config.getFrameTime(), 20);
  setenv("MORVANE_CONFIG", "absent.txt", 1);
  EXPECT_EQ(config.readConfig(), "")
      << "a missing named file counts as no file, though mv-config.txt exists";

  unsetenv("MORVANE_CONFIG");
  scratch.write("mv-config.txt",
                "# a comment, frame_time:1,\r\n\r\nwindow_title:Two Words,\r\n"
                "  # not a comment in the first column: an entry of its own,\r\n"
                "frame_time:33\nheadless:true,\nrandom_seed:42");
  config.loadConfig();
  EXPECT_EQ(config.getWindowTitle(), "TwoWords");
  EXPECT_EQ(config.getFrameTime(), 33) << "a missing comma merges 33 with the next entry";
  EXPECT_FALSE(config.getHeadless()) << "the merged entry is no longer a headless key";
  EXPECT_EQ(config.match("frame_time"), "33headless");
  EXPECT_EQ(config.getRandomSeed(), 42) << "a last entry without comma or newline is read";

  scratch.write("mv-config.txt",
                "window_style:0,window_state:maximised,window_background_color:purple,"
                "show_mouse:True,networking:false,frame_time:abc,"
                "window_horizontal_chars:99999999999999,font_scale:x");
  const std::string errors = mv_test::stderrOf([&] { config.loadConfig(); });
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{"loadConfig(): Unsupported window color 'purple'",
                                      "loadConfig(): Unsupported window style '0'",
                                      "loadConfig(): Unsupported window state 'maximised'"}));
  // Only the exact word true is true, text that is no number reads as 0, and
  // too large a number is clamped.
  EXPECT_EQ(settings(config),
            "style 5 state 0 background 0 mouse 0 networking 0 frame 0 columns 2147483647 font 0 "
            "grid 20 log morvane.log");

  scratch.write("mv-config.txt",
                "window_style:none,window_state:fullscreen,window_background_color:cyan,"
                "show_mouse:true,font_scale:1.5,grid_width:7,logfile:game.log,");
  config.loadConfig();
  EXPECT_EQ(settings(config),
            "style 0 state 1 background 6 mouse 1 networking 0 frame 0 columns 2147483647 font 1.5 "
            "grid 7 log game.log")
      << "a later load overwrites only what its text names";
}

}  // namespace
