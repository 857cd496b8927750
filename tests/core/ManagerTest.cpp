#include "Manager.h"

#include <gtest/gtest.h>

#include "GameManager.h"
#include "RecordingObject.h"
#include "WorldTest.h"

namespace {

using mv_test::RecordingObject;
using Log = std::vector<std::string>;

class DispatchTest : public mv_test::WorldTest {
 protected:
  static mv::Event event(const std::string& label) {
    mv::Event e;
    e.setType(label);
    return e;
  }
};

// A handler that makes the manager learn new labels, or forget the label being
// dispatched, moves the table under the walk; the sanitized build catches a
// walk that still reads the old table.
TEST_F(DispatchTest, HandlersRunInOrderOverACopyOfTheListAndUndefinedEventsReachNobody) {
  auto* a = new RecordingObject("a");
  auto* b = new RecordingObject("b");
  auto* c = new RecordingObject("c");
  auto* late = new RecordingObject("late");
  for (RecordingObject* o : {a, b, c}) {
    o->registerInterest("ping");
  }
  a->on_event = [&](const mv::Event*) {
    for (int i = 0; i < 20; i++) {
      a->registerInterest("label " + std::to_string(i));
    }
    for (RecordingObject* o : {a, b, c}) {
      o->unregisterInterest("ping");  // the label goes with its last listener
    }
    late->registerInterest("ping");
  };
  const mv::Event ping = event("ping");
  EXPECT_EQ(world().onEvent(&ping), 3);
  EXPECT_EQ(mv_test::dispatch_log, (Log{"a: ping", "b: ping", "c: ping"}))
      << "b and c were taken out during the walk but were in the copy; late was not";

  mv_test::dispatch_log.clear();
  EXPECT_EQ(world().onEvent(&ping), 1);
  EXPECT_EQ(mv_test::dispatch_log, Log{"late: ping"});
  late->unregisterInterest("ping");
  EXPECT_EQ(world().onEvent(&ping), 0);
  const mv::Event nineteen = event("label 19");
  EXPECT_EQ(world().onEvent(&nineteen), 1);

  a->setActive(false);
  EXPECT_EQ(world().onEvent(&nineteen), 0) << "inactive objects are skipped";
  a->setActive(true);
  EXPECT_EQ(world().onEvent(&nineteen), 1) << "but keep their interest";

  auto* o = new RecordingObject("o");
  o->registerInterest("ping");
  const mv::Event undefined;
  EXPECT_EQ(world().onEvent(&undefined), 0);
  const mv::Event nobody = event("pong");
  EXPECT_EQ(world().onEvent(&nobody), 0);
  EXPECT_TRUE(o->received.empty());

  const mv::Event wearing_a_step_label = event("mv-step");
  o->registerInterest("mv-step");
  EXPECT_EQ(mv::GameManager::getInstance().onEvent(&wearing_a_step_label), 1)
      << "delivery goes by the label alone";
}

TEST_F(DispatchTest, AManagerKnowsAHundredLabelsAndFreesThePlaceOfAnUnwantedOne) {
  auto* o = new RecordingObject("o");
  auto* other = new RecordingObject("other");
  for (int i = 0; i < 100; i++) {
    ASSERT_EQ(world().registerInterest(o, "label " + std::to_string(i)), 0);
  }
  EXPECT_EQ(world().registerInterest(o, "label 100"), -1);
  EXPECT_EQ(world().registerInterest(other, "label 5"), 0) << "a known label still takes more";

  EXPECT_EQ(world().unregisterInterest(o, "label 7"), 0);
  EXPECT_EQ(world().registerInterest(o, "label 100"), 0) << "its place was freed";
  EXPECT_EQ(world().unregisterInterest(o, "label 7"), -1);
  EXPECT_EQ(world().unregisterInterest(other, "label 6"), -1);

  const mv::Event later = event("label 99");
  EXPECT_EQ(world().onEvent(&later), 1) << "labels after the freed place still deliver";
}

}  // namespace
