#include "ResourceManager.h"

#include <gtest/gtest.h>

#include "LogManager.h"
#include "ResourceTest.h"
#include "logLines.h"
#include "soundFile.h"

namespace {

using mv::ResourceManager;
using mv_test::fileText;
using Lines = std::vector<std::string>;

const std::string DOT = fileText({"1", "1", "1", "0", "white", "."});

class ResourceManagerTest : public mv_test::ResourceTest {
 protected:
  ResourceManager& resources = ResourceManager::getInstance();
};

TEST_F(ResourceManagerTest, RefusesEverythingButLookupsWhileStoppedAndASecondStart) {
  EXPECT_EQ(resources.startUp(), -1);
  EXPECT_EQ(newMessages(),
            Lines{"ResourceManager::startup(): Warning! ResourceManager already started."});
  mv_test::writeWav("beep.wav", 300);
  resources.shutDown();

  scratch.write("dot.txt", DOT);
  EXPECT_EQ(resources.loadSprite("dot.txt", "dot"), -1);
  EXPECT_EQ(resources.loadSound("beep.wav", "beep"), -1);
  EXPECT_EQ(resources.loadMusic("beep.wav", "tune"), -1);
  EXPECT_EQ(resources.getSprite("dot"), nullptr);
  EXPECT_EQ(newMessages(), (Lines{"ResourceManager not started!", "ResourceManager not started!",
                                  "ResourceManager not started!",
                                  "RM::getSprite(): Warning! Sprite 'dot' not found."}));

  ASSERT_EQ(resources.startUp(), 0);
  EXPECT_EQ(resources.loadSprite("dot.txt", "dot"), 0);
}

TEST_F(ResourceManagerTest, LooksUpTheFirstResourceOfALabelAndWarnsWhenThereIsNone) {
  scratch.write("dot.txt", DOT);
  scratch.write("two.txt", fileText({"2", "1", "1", "0", "blue", "a", "b"}));
  ASSERT_EQ(resources.loadSprite("dot.txt", "dot"), 0);
  ASSERT_EQ(resources.loadSprite("two.txt", "dot"), 0);
  ASSERT_EQ(resources.loadSprite("two.txt", ""), 0) << "sprites may have an empty label";
  EXPECT_EQ(resources.getSprite("dot")->getFrameCount(), 1) << "the first of a label wins";
  EXPECT_EQ(resources.getSprite("")->getColor(), mv::BLUE);

  mv_test::writeWav("long.wav", 3000);
  ASSERT_EQ(resources.loadSound("long.wav", "shot"), 0);
  ASSERT_EQ(resources.loadMusic("long.wav", "tune"), 0);
  EXPECT_EQ(resources.getMusic("tune")->getLabel(), "tune");

  newMessages();
  EXPECT_EQ(resources.getSprite("ship"), nullptr);
  EXPECT_EQ(resources.getSound("tune"), nullptr);
  EXPECT_EQ(resources.getMusic("shot"), nullptr);
  EXPECT_EQ(newMessages(), (Lines{"RM::getSprite(): Warning! Sprite 'ship' not found.",
                                  "RM::getSound(): Warning! Sound 'tune' not found.",
                                  "RM::getMusic(): Warning! Music 'shot' not found."}));
}

TEST_F(ResourceManagerTest, BadFilesAreRefusedWithTheirNamesAndLeaveTheSlotFree) {
  scratch.write("noise.wav", "RIFF but not really");
  newMessages();
  EXPECT_EQ(resources.loadSprite("nowhere.txt", "ship"), -1);
  EXPECT_EQ(resources.loadSound("noise.wav", "bang"), -1);
  EXPECT_EQ(resources.loadMusic("nowhere.ogg", "tune"), -1);
  EXPECT_EQ(resources.loadMusic("noise.wav", ""), -1);
  EXPECT_EQ(newMessages(),
            (Lines{"RM::loadSprite(): Error! Cannot open file 'nowhere.txt'.",
                   "RM::loadSprite(): Sprite 'ship' not loaded.",
                   "RM::loadSound(): Error! Cannot load sound from file 'noise.wav'.",
                   "RM::loadmusic(): Error! Cannot load music from file 'nowhere.ogg'.",
                   "RM::loadMusic(): Error! Must provide label for music."}));

  mv_test::writeWav("bang.wav", 300);
  ASSERT_EQ(resources.loadSound("bang.wav", "bang"), 0);
  EXPECT_NE(resources.getSound("bang"), nullptr);
  EXPECT_EQ(resources.loadSound("bang.wav", ""), 0) << "sounds may have an empty label";
}

TEST_F(ResourceManagerTest, HoldsAThousandSpritesAHundredSoundsAndFiftyTracks) {
  scratch.write("dot.txt", DOT);
  for (int i = 0; i < mv::MAX_SPRITES; i++) {
    ASSERT_EQ(resources.loadSprite("dot.txt", "dot" + std::to_string(i)), 0);
  }
  mv_test::writeWav("beep.wav", 300);
  for (int i = 0; i < mv::MAX_SOUNDS; i++) {
    ASSERT_EQ(resources.loadSound("beep.wav", "beep" + std::to_string(i)), 0);
  }
  for (int i = 0; i < mv::MAX_MUSICS; i++) {
    ASSERT_EQ(resources.loadMusic("beep.wav", "tune" + std::to_string(i)), 0);
  }
  newMessages();
  EXPECT_EQ(resources.loadSprite("dot.txt", "one too many"), -1);
  EXPECT_EQ(resources.loadSound("beep.wav", "one too many"), -1);
  EXPECT_EQ(resources.loadMusic("beep.wav", "one too many"), -1);
  EXPECT_EQ(newMessages(),
            (Lines{"RM::loadRobustSprite(): Error! Cannot add more Sprites (max is 1000).",
                   "RM::loadRobustSprite(): Sprite 'one too many' not loaded.",
                   "RM::loadSound(): Error! Unable to add more sounds (max is 100).",
                   "RM::loadMusic(): Error! Unable to add more musics (max is 50)."}));
  EXPECT_NE(resources.getSprite("dot999"), nullptr);
  EXPECT_NE(resources.getMusic("tune49"), nullptr);
}

TEST_F(ResourceManagerTest, ShutDownDropsTheSpritesAndStopsWhatPlays) {
  scratch.write("dot.txt", DOT);
  mv_test::writeWav("hum.wav", 3000);
  ASSERT_EQ(resources.loadSprite("dot.txt", "dot"), 0);
  ASSERT_EQ(resources.loadSound("hum.wav", "hum"), 0);
  ASSERT_EQ(resources.loadMusic("hum.wav", "tune"), 0);
  mv::Sound* hum = resources.getSound("hum");
  mv::Music* tune = resources.getMusic("tune");
  hum->play(true);
  tune->play(true);
  EXPECT_TRUE(hum->isPlaying());
  EXPECT_TRUE(tune->isPlaying());

  resources.shutDown();
  EXPECT_FALSE(hum->isPlaying());
  EXPECT_FALSE(tune->isPlaying());
  ASSERT_EQ(resources.startUp(), 0);
  EXPECT_EQ(resources.getSound("hum"), nullptr) << "a new start begins with nothing loaded";
  EXPECT_EQ(resources.getSprite("dot"), nullptr);
}

TEST_F(ResourceManagerTest, WritesEachStepOfALoadAndEveryRowWhenAsked) {
  mv::LogManager::getInstance().setLogLevel(15);
  ASSERT_EQ(loadSprite(fileText({"2", "2", "1", "3", "green", "ab", "cd"}), "pair"), 0);
  const Lines expected = {
      "RM::loadSprite(): Loading sprite 'sprite.txt'.",
      "RM::loadSprite(): assuming simple sprite file format.",
      "\t      Frames: 2",
      "\t       Width: 2",
      "\t      Height: 1",
      "\t    Slowdown: 3",
      "\t       Color: Green",
      "RM::loadSimpleSprite(): Reading frame 0 of 2.",
      "RM::loadSimpleSprite(): Reading frame 1 of 2.",
      "RM::loadSprite(): Sprite 'pair' frames:",
      "\tFrame 1:",
      "\tab",
      "\tFrame 2:",
      "\tcd",
      "RM::loadSprite(): Sprite 'pair' loaded.",
  };
  EXPECT_EQ(logged, expected);
}

}  // namespace
