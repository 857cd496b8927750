#include "Sound.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "LogManager.h"
#include "Music.h"
#include "ResourceManager.h"
#include "ResourceTest.h"
#include "logLines.h"

namespace {

class SoundTest : public ::testing::Test {
 protected:
  void SetUp() override {
    mv::LogManager& log = mv::LogManager::getInstance();
    log.setFlush(true);
    log.setLogLevel(5);
    ASSERT_EQ(log.startUp(), 0);
  }
  void TearDown() override { mv::LogManager::getInstance().shutDown(); }

  mv_test::ScratchDirectory scratch;
};

TEST_F(SoundTest, SoundsAndMusicPlayOnlyAfterALoadAndKeepTheirSamplesThroughAFailedOne) {
  mv::Sound sound;
  sound.play(true);
  EXPECT_FALSE(sound.isPlaying()) << "nothing loaded, nothing plays";

  mv_test::writeWav("long.wav", 5 * 44100);
  mv_test::writeWav("short.wav", 300);
  ASSERT_EQ(sound.loadSound("long.wav"), 0);
  sound.play(false);
  EXPECT_TRUE(sound.isPlaying()) << "playing starts at once";
  sound.stop();
  EXPECT_FALSE(sound.isPlaying());
  ASSERT_EQ(sound.loadSound("short.wav"), 0);
  scratch.write("broken.wav", "not a sound");
  EXPECT_EQ(sound.loadSound("broken.wav"), -1);
  sound.play(true);
  EXPECT_TRUE(sound.isPlaying()) << "a failed load keeps the samples there were";
  sound.stop();

  mv::Music music;
  ASSERT_EQ(music.loadMusic("long.wav"), 0);
  music.play(false);
  EXPECT_TRUE(music.isPlaying());
  music.stop();
  EXPECT_FALSE(music.isPlaying());
  EXPECT_TRUE(mv_test::inOrder(mv_test::logFileMessages(),
                               {"Sound::play(): Playing sound.", "Music::play(): Playing music.",
                                "Music::stop(): Stopping music."}));
}

// A machine without a sound device: the audio library can open none when
// asked for a backend that does not exist. Each test runs in a process of its
// own, so the audio starts here for the first time.
TEST_F(SoundTest, WithoutAnAudioDeviceEverythingStaysSilentAndSaysSoOnce) {
  setenv("ALSOFT_DRIVERS", "no-such-backend", 1);
  mv_test::writeWav("tone.wav", 44100 / 2);
  mv::ResourceManager& resources = mv::ResourceManager::getInstance();
  ASSERT_EQ(resources.startUp(), 0);
  ASSERT_EQ(resources.loadMusic("tone.wav", "theme"), 0);
  ASSERT_EQ(resources.loadSound("tone.wav", "shot"), 0);
  resources.getMusic("theme")->play(true);
  resources.getSound("shot")->play(false);
  EXPECT_FALSE(resources.getMusic("theme")->isPlaying());
  EXPECT_FALSE(resources.getSound("shot")->isPlaying());
  resources.shutDown();
  EXPECT_TRUE(
      mv_test::logged("RM::startUp(): Warning! No audio device: sounds and music stay silent."));
}

}  // namespace
