#include "ResourceManager.h"

#include <gtest/gtest.h>

#include "LogManager.h"
#include "ResourceTest.h"
#include "logLines.h"

namespace {

using mv::ResourceManager;
using mv_test::fileText;
using Lines = std::vector<std::string>;

class ResourceManagerTest : public mv_test::ResourceTest {
 protected:
  void SetUp() override {
    ResourceTest::SetUp();
    scratch.write("dot.txt", fileText({"1", "1", "1", "0", "white", "."}));
    mv_test::writeWav("beep.wav", 3000);
  }

  // What loading dot.txt as a sprite and beep.wav as a sound and as music, all
  // under `label`, answers.
  std::vector<int> loadEach(const std::string& label) {
    return {resources.loadSprite("dot.txt", label), resources.loadSound("beep.wav", label),
            resources.loadMusic("beep.wav", label)};
  }

  ResourceManager& resources = ResourceManager::getInstance();
};

const std::vector<int> LOADED = {0, 0, 0}, REFUSED = {-1, -1, -1};

TEST_F(ResourceManagerTest, RefusesWhileStoppedAndBadFilesByNameThenFindsTheFirstOfALabel) {
  EXPECT_EQ(resources.startUp(), -1);
  EXPECT_EQ(newMessages(),
            Lines{"ResourceManager::startup(): Warning! ResourceManager already started."});
  resources.shutDown();

  EXPECT_EQ(loadEach("dot"), REFUSED);
  EXPECT_EQ(resources.getSprite("dot"), nullptr);
  EXPECT_EQ(newMessages(), (Lines{"ResourceManager not started!", "ResourceManager not started!",
                                  "ResourceManager not started!",
                                  "RM::getSprite(): Warning! Sprite 'dot' not found."}));

  ASSERT_EQ(resources.startUp(), 0);
  scratch.write("two.txt", fileText({"2", "1", "1", "0", "blue", "a", "b"}));
  ASSERT_EQ(loadEach("dot"), LOADED);
  ASSERT_EQ(resources.loadSprite("two.txt", "dot"), 0);
  ASSERT_EQ(resources.loadSprite("two.txt", ""), 0) << "sprites may have an empty label";
  EXPECT_EQ(resources.getSprite("dot")->getFrameCount(), 1) << "the first of a label wins";
  EXPECT_EQ(resources.getSprite("")->getColor(), mv::BLUE);
  ASSERT_EQ(resources.loadSound("beep.wav", "shot"), 0);

  newMessages();
  EXPECT_EQ(resources.getSprite("ship"), nullptr);
  EXPECT_EQ(resources.getSound("tune"), nullptr);
  EXPECT_EQ(resources.getMusic("shot"), nullptr);
  EXPECT_EQ(newMessages(), (Lines{"RM::getSprite(): Warning! Sprite 'ship' not found.",
                                  "RM::getSound(): Warning! Sound 'tune' not found.",
                                  "RM::getMusic(): Warning! Music 'shot' not found."}));

  // Bad files are refused with their names, and leave their labels free.
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

  ASSERT_EQ(resources.loadSound("beep.wav", "bang"), 0) << "a failed load left the slot free";
  EXPECT_EQ(resources.loadSound("beep.wav", ""), 0) << "sounds may have an empty label";
}

TEST_F(ResourceManagerTest, HoldsAThousandSpritesAHundredSoundsAndFiftyTracksThenShutsAllDown) {
  for (int i = 0; i < mv::MAX_SPRITES; i++) {
    ASSERT_EQ(resources.loadSprite("dot.txt", std::to_string(i)), 0);
  }
  for (int i = 0; i < mv::MAX_SOUNDS; i++) {
    ASSERT_EQ(resources.loadSound("beep.wav", std::to_string(i)), 0);
  }
  for (int i = 0; i < mv::MAX_MUSICS; i++) {
    ASSERT_EQ(resources.loadMusic("beep.wav", std::to_string(i)), 0);
  }
  newMessages();
  EXPECT_EQ(loadEach("one too many"), REFUSED);
  EXPECT_EQ(newMessages(),
            (Lines{"RM::loadRobustSprite(): Error! Cannot add more Sprites (max is 1000).",
                   "RM::loadRobustSprite(): Sprite 'one too many' not loaded.",
                   "RM::loadSound(): Error! Unable to add more sounds (max is 100).",
                   "RM::loadMusic(): Error! Unable to add more musics (max is 50)."}));
  EXPECT_NE(resources.getSprite("999"), nullptr);
  mv::Sound* sound = resources.getSound("99");
  mv::Music* music = resources.getMusic("49");
  sound->play(true);
  music->play(true);
  EXPECT_TRUE(sound->isPlaying() && music->isPlaying());

  resources.shutDown();
  EXPECT_FALSE(sound->isPlaying() || music->isPlaying()) << "shutting down stops what plays";
  ASSERT_EQ(resources.startUp(), 0);
  EXPECT_EQ(resources.getSound("99"), nullptr) << "a new start begins with nothing loaded";
  EXPECT_EQ(resources.getSprite("999"), nullptr);
}

TEST_F(ResourceManagerTest, WritesEachStepOfALoadAndEveryRowWhenAsked) {
  mv::LogManager::getInstance().setLogLevel(15);
  ASSERT_EQ(loadSprite(fileText({"2", "2", "1", "3", "green", "ab", "cd"}), "pair"), 0);
  const Lines expected = {"RM::loadSprite(): Loading sprite 'sprite.txt'.",
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
                          "RM::loadSprite(): Sprite 'pair' loaded."};
  EXPECT_EQ(logged, expected);
}

}  // namespace
