#include "ObjectList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "ObjectListIterator.h"
#include "WorldTest.h"

namespace {

using mv::ObjectList;
using mv::ObjectListIterator;

// The list only stores pointers, so any distinct addresses stand in for objects.
mv::Object* fake(int n) {
  static char storage[16];
  return reinterpret_cast<mv::Object*>(&storage[n]);
}

using mv_test::toVector;
using Objects = std::vector<mv::Object*>;

TEST(ObjectList, GrowsRefusesNullRemovesTheFirstMatchCopiesAreValuesAndIndexingChecksBounds) {
  ObjectList list;
  EXPECT_EQ(list.insert(nullptr), -1);
  for (int n : {1, 2, 3, 2}) {
    ASSERT_EQ(list.insert(fake(n)), 0);
  }
  const ObjectList before_removal = list;

  EXPECT_EQ(list.remove(fake(2)), 0);
  EXPECT_EQ(toVector(list), (Objects{fake(1), fake(3), fake(2)}));
  EXPECT_EQ(list.remove(fake(9)), -1);
  EXPECT_EQ(list.getCount(), 3);

  EXPECT_EQ(toVector(before_removal), (Objects{fake(1), fake(2), fake(3), fake(2)}))
      << "a copy is independent of its original";
  EXPECT_EQ(toVector(list + before_removal),
            (Objects{fake(1), fake(3), fake(2), fake(1), fake(2), fake(3), fake(2)}))
      << "a sum appends the other list";
  list = list;
  EXPECT_EQ(toVector(list), (Objects{fake(1), fake(3), fake(2)}))
      << "assigning to itself changes nothing";

  EXPECT_EQ(list[1], fake(3));
  EXPECT_THROW(list[-1], std::out_of_range);
  EXPECT_THAT([&] { list[3]; },
              testing::ThrowsMessage<std::out_of_range>(testing::StrEq("Invalid index!")));
  list.clear();
  EXPECT_TRUE(list.isEmpty());
}

TEST(ObjectListIterator, SeesAppendedElementsAndStopsAtTheEnd) {
  ObjectList list;
  list.insert(fake(1));
  ObjectListIterator it(&list);
  Objects seen;
  for (it.first(); !it.isDone(); it.next()) {
    seen.push_back(it.currentObject());
    if (seen.size() == 1) {
      list.insert(fake(2));
    }
  }
  EXPECT_EQ(seen, (Objects{fake(1), fake(2)}));

  it.next();
  EXPECT_TRUE(it.isDone());
  EXPECT_EQ(it.currentObject(), nullptr);
  list.insert(fake(3));
  EXPECT_EQ(it.currentObject(), fake(3)) << "next() never ran past the end";
}

}  // namespace
