#include <gtest/gtest.h>

#include "EventNetworkAccept.h"
#include "logLines.h"

namespace {

TEST(Event, AnUndefinedNetworkTypeIsLoggedAndStoredAsUndefined) {
  const std::string errors = mv_test::stderrOf([] {
    const mv::EventNetworkAccept accept(4);
    EXPECT_EQ(accept.getNetworkType(), -1);
    EXPECT_EQ(accept.getType(), "mv-network-accept") << "the label stays";
    EXPECT_EQ(accept.getSocket(), -1);
  });
  EXPECT_TRUE(mv_test::hasMessage(errors, "EventNetwork::setLabel(): Undefined type (4)."));
  EXPECT_TRUE(mv::isNetworkEvent("mv-network-sync"));
  EXPECT_FALSE(mv::isNetworkEvent("mv-network-"));
}

}  // namespace
