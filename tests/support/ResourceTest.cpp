#include "ResourceTest.h"

#include "LogManager.h"
#include "ResourceManager.h"
#include "logLines.h"

namespace mv_test {

void ResourceTest::SetUp() {
  mv::LogManager& log = mv::LogManager::getInstance();
  log.setFlush(true);
  ASSERT_EQ(log.startUp(), 0);
  ASSERT_EQ(mv::ResourceManager::getInstance().startUp(), 0);
}

void ResourceTest::TearDown() {
  mv::ResourceManager::getInstance().shutDown();
  mv::LogManager::getInstance().shutDown();
}

int ResourceTest::loadSprite(const std::string& contents, const std::string& label) {
  scratch.write("sprite.txt", contents);
  newMessages();
  const int result = mv::ResourceManager::getInstance().loadSprite("sprite.txt", label);
  logged = newMessages();
  return result;
}

std::vector<std::string> ResourceTest::newMessages() {
  const std::vector<std::string> all = logFileMessages();
  const std::vector<std::string> fresh(all.begin() + static_cast<long>(messages_seen), all.end());
  messages_seen = all.size();
  return fresh;
}

}  // namespace mv_test
