#include "Path.h"

#include <gtest/gtest.h>

namespace {

using mv::Path;
using mv::Vector;

TEST(Path, WalksItsNodesStaysDoneAtTheEndAndWritesEveryNodeWithASeparatorAfterEach) {
  Path path;
  EXPECT_TRUE(path.isDone());
  EXPECT_EQ(path.getCurrentNode(), Vector());

  path.setNodes({Vector(1, 2), Vector(3, 4)});
  EXPECT_EQ(path.getCurrentNode(), Vector(1, 2));
  const Path after_pop = path.popNode();
  EXPECT_EQ(after_pop.getCurrentNode(), Vector(3, 4)) << "popNode answers the new state";
  path.popNode();
  EXPECT_TRUE(path.isDone());
  path.popNode();
  EXPECT_TRUE(path.isDone());
  EXPECT_EQ(path.getCurrentNode(), Vector());

  path.setNodes({Vector(1, 2), Vector(3, 4), Vector(5, 6)});
  EXPECT_EQ(path.getCurrentNode(), Vector(5, 6)) << "new nodes keep the cursor";

  path.setNodes({Vector(9, 9)});
  path.popNode();
  path.setNodes({Vector(1, 1), Vector(2, 2)});
  EXPECT_EQ(path.getCurrentNode(), Vector(2, 2))
      << "a cursor that ran past fewer nodes is held at their end";
  EXPECT_EQ(path.toString(), "(1,1)|(2,2)|") << "every node, whatever the cursor";
  EXPECT_EQ(Path().toString(), "");
}

}  // namespace
