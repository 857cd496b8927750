#include "NetworkManager.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

#include "EventNetwork.h"
#include "EventStep.h"
#include "GameManager.h"
#include "LogManager.h"
#include "RecordingObject.h"
#include "ScratchDirectory.h"
#include "WorldTest.h"
#include "logLines.h"
#include "platform.h"
#include "sockets.h"

namespace {

using mv::NetworkManager;
using mv_test::logged;

NetworkManager& network() { return NetworkManager::getInstance(); }

bool logHas(const std::string& part) {
  return mv_test::readFile("morvane.log").find(part) != std::string::npos;
}

// Tries `attempt` once a millisecond until it succeeds or two seconds pass.
bool withinTwoSeconds(const std::function<bool()>& attempt) {
  for (int i = 0; i < 2000; i++) {
    if (attempt()) {
      return true;
    }
    mv::platform::sleepMilliseconds(1);
  }
  return false;
}

// Lets the manager read until `done`.
bool pollUntil(const std::function<bool()>& done) {
  return withinTwoSeconds([&] {
    if (!done()) {
      network().receive();
    }
    return done();
  });
}

// The next connection waiting; -1 if none came.
int acceptOne() {
  int socket = -1;
  withinTwoSeconds([&] { return (socket = network().accept()) >= 0; });
  return socket;
}

// A peer of our own over loopback, speaking raw bytes.
int connectPeer() { return mv::sockets::connectTo(mv::LOOPBACK_ADDRESS, network().getPort()); }

void sendRaw(int peer, const std::string& bytes) {
  ASSERT_EQ(mv::sockets::sendSome(peer, bytes.data(), bytes.size()),
            static_cast<long>(bytes.size()));
}

// Whether our side closed the peer's connection: its reads come to the end.
bool peerSeesClose(int peer) {
  char chunk[4096];
  return withinTwoSeconds([&] { return mv::sockets::receiveSome(peer, chunk, sizeof chunk) == 0; });
}

std::size_t openDescriptors() {
  const std::filesystem::directory_iterator fds("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(fds, std::filesystem::directory_iterator()));
}

// A started log and network manager in a world of their own, with an object
// that wants every network label.
class NetworkTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    mv::LogManager::getInstance().startUp();
    mv::LogManager::getInstance().setFlush(true);
    ASSERT_EQ(network().startUp(), 0);
    listener = new mv_test::RecordingObject("listener");
    for (const std::string& label : mv::NETWORK_EVENTS) {
      ASSERT_EQ(listener->registerInterest(label), 0) << label;
    }
  }

  void TearDown() override {
    network().shutDown();
    mv::LogManager::getInstance().shutDown();
    WorldTest::TearDown();
  }

  // Listens on a port of the system's choosing.
  void serve() { ASSERT_EQ(network().startServer(0), 0); }

  mv_test::RecordingObject* listener = nullptr;
};

TEST_F(NetworkTest, RefusesWhatItCannotDoAndSaysSoAndReportsAPartialSend) {
  EXPECT_EQ(network().accept(), -2);
  EXPECT_TRUE(logged("NetworkManager::accept(): Error! Not setup as server."));

  const char byte = 'x';
  EXPECT_EQ(network().send(&byte, 1, 42), -1);
  EXPECT_TRUE(logged("NetworkManager::send(): Error! Socket 42 not connected. Unable to send."));
  EXPECT_EQ(network().close(42), -1);
  EXPECT_TRUE(logged("NetworkManager::close(): Error! Socket 42 not found."));
  EXPECT_EQ(network().queueMessage(mv::NETWORK_EVENT, "x", 42, 0), -1);
  EXPECT_EQ(network().close(-1), 0) << "nothing to close is no failure";

  EXPECT_FALSE(network().isValid("mv-step"));
  EXPECT_TRUE(logged("NetworkManager::isValid(): Error! NetworkManager does not handle mv-step."));
  EXPECT_EQ(listener->unregisterInterest("mv-network-accept"), 0)
      << "the interest leaves the manager that took it";

  serve();
  EXPECT_EQ(network().startServer(0), -1) << "one listening socket at a time";
  EXPECT_EQ(network().connect(mv::LOOPBACK_ADDRESS, 0), -1);
  EXPECT_TRUE(logHas("NetworkManager::connect(): Error! connect() to 127.0.0.1 port 0"));
  EXPECT_TRUE(listener->received.empty());

  const int peer = connectPeer();
  const int socket = acceptOne();
  // Far more than the system buffers for a peer that never reads: a partial
  // send is reported, and the connection stays.
  const std::vector<char> flood(64 << 20, 'x');
  EXPECT_EQ(network().send(flood.data(), static_cast<int>(flood.size()), socket), -1);
  EXPECT_TRUE(logHas(" of 67108864 bytes sent."));
  EXPECT_TRUE(network().isConnected(socket));
  mv::sockets::closeSocket(peer);
}

TEST_F(NetworkTest, TakesNoMoreThanTheLimitAndTheNextWaitsForAPlace) {
  serve();
  mv::LogManager::getInstance().setLogLevel(20);
  std::vector<int> peers;
  std::vector<int> accepted;
  for (int i = 0; i < 4; i++) {
    peers.push_back(connectPeer());
  }
  for (int i = 0; i < 3; i++) {
    accepted.push_back(acceptOne());
  }
  EXPECT_EQ(network().accept(), -1) << "the fourth waits";
  EXPECT_TRUE(logged("NetworkManager::accept(): Won't check for new connetions since at max."));
  EXPECT_EQ(network().getConnections(), accepted);

  sendRaw(peers[3], mv::frameMessage("mv-network-sync", "early"));
  ASSERT_EQ(network().close(accepted[0]), 0);
  EXPECT_GE(acceptOne(), 0) << "a freed place takes the one waiting";
  ASSERT_TRUE(pollUntil([&] { return listener->received.size() == 6; }));
  EXPECT_EQ(listener->received.back(), "mv-network-sync 'early'")
      << "what it sent while waiting is not lost";

  listener->received.clear();
  ASSERT_EQ(network().close(-1), 0);
  EXPECT_EQ(listener->received, std::vector<std::string>(3, "mv-network-close"));
  EXPECT_FALSE(network().isConnected(-1));
  for (int peer : peers) {
    EXPECT_TRUE(peerSeesClose(peer));
    mv::sockets::closeSocket(peer);
  }
}

TEST_F(NetworkTest, ConnectsAsAClientAndMessagesGoBothWays) {
  serve();
  std::vector<int> sockets_seen;
  listener->on_event = [&](const mv::Event* event) {
    sockets_seen.push_back(static_cast<const mv::EventNetwork*>(event)->getSocket());
  };
  const int client = network().connect(mv::LOOPBACK_ADDRESS, network().getPort());
  ASSERT_GE(client, 0);
  const int server_side = acceptOne();
  ASSERT_GE(server_side, 0);

  EXPECT_EQ(network().sendMessage("mv-network-sync", "ping", client), 0);
  EXPECT_EQ(network().sendMessage("mv-custom-network", std::string("p\0ng", 4), server_side), 0);
  ASSERT_TRUE(pollUntil([&] { return listener->received.size() == 4; }));
  EXPECT_EQ(network().sendMessage("mv-network-accept", "fake", client), -1)
      << "a peer can't pretend to be a connection";

  ASSERT_EQ(network().close(client), 0);
  ASSERT_TRUE(pollUntil([&] { return !network().isConnected(-1); }));
  const std::vector<std::string> expected = {
      "mv-network-connect",     "mv-network-accept", std::string("mv-custom-network 'p\0ng'", 24),
      "mv-network-sync 'ping'", "mv-network-close",  "mv-network-close"};
  EXPECT_EQ(listener->received, expected) << "connections are read in the order they came";
  EXPECT_EQ(sockets_seen,
            (std::vector<int>{client, server_side, client, server_side, client, server_side}));
}

// Each hostile peer sends a good message, then its mischief: a broken stream
// (every kind of which the reader tells apart), a stall, a hang-up. The good one
// arrives; the peer is closed with a line that names it; a peer that has
// behaved all along is undisturbed, and a newcomer, likely on the same socket
// number, starts with a clean slate.
TEST_F(NetworkTest, AHostilePeerIsClosedAndTakesNoOneElsesPlace) {
  const std::string half = mv::frameMessage("mv-network-sync", "0123456789").substr(0, 8);
  const struct {
    std::string bytes;
    bool hangs_up;
    std::string line;
  } hostiles[] = {
      {std::string("\x03\0\0\0\x2aok", 7), false,
       "Error! Socket # sent a message with the unknown label code 42; closing it."},
      {half, false,
       "Error! Socket # sent 8 bytes of a message and then nothing for 3 polls; closing it."},
      {half, true,
       "Warning! Socket # closed by its peer in the middle of a message; 8 bytes of it dropped."},
  };
  serve();
  network().setStallLimit(3);
  const std::size_t descriptors_before = openDescriptors();
  const int bystander = connectPeer();
  const int bystander_socket = acceptOne();

  for (const auto& hostile : hostiles) {
    SCOPED_TRACE(hostile.line);
    listener->received.clear();
    const int peer = connectPeer();
    const int socket = acceptOne();
    sendRaw(peer, mv::frameMessage("mv-network-sync", "before") + hostile.bytes);
    if (hostile.hangs_up) {
      mv::sockets::closeSocket(peer);
    }
    ASSERT_TRUE(pollUntil([&] { return !network().isConnected(socket); }));
    std::string line = "NetworkManager::receive(): " + hostile.line;
    line.replace(line.find('#'), 1, std::to_string(socket));
    EXPECT_TRUE(logged(line)) << line;
    if (!hostile.hangs_up) {
      EXPECT_TRUE(peerSeesClose(peer));
      mv::sockets::closeSocket(peer);
    }

    const int newcomer = connectPeer();
    acceptOne();
    sendRaw(newcomer, mv::frameMessage("mv-network-sync", "after"));
    sendRaw(bystander, mv::frameMessage("mv-network-sync", "still here"));
    ASSERT_TRUE(pollUntil([&] { return listener->received.size() == 6; }));
    const std::vector<std::string> expected = {
        "mv-network-accept", "mv-network-sync 'before'",     "mv-network-close",
        "mv-network-accept", "mv-network-sync 'still here'", "mv-network-sync 'after'"};
    EXPECT_EQ(listener->received, expected);
    EXPECT_EQ(network().getConnections().front(), bystander_socket);
    mv::sockets::closeSocket(newcomer);
    ASSERT_TRUE(pollUntil([&] { return network().getConnections().size() == 1; }));
  }
  mv::sockets::closeSocket(bystander);
  ASSERT_TRUE(pollUntil([&] { return !network().isConnected(-1); }));
  EXPECT_EQ(openDescriptors(), descriptors_before) << "every socket given back";
}

TEST(NetworkManagerInTheLoop, TheLoopAcceptsReadsAndSendsWhatIsDue) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "headless:true,frame_time:0,");
  mv::GameManager& game = mv::GameManager::getInstance();
  ASSERT_EQ(game.startUp(), 0);
  ASSERT_EQ(network().startServer(0), 0);
  auto* sender = new mv_test::RecordingObject("sender");
  for (const std::string& label :
       {mv::STEP_EVENT, mv::NETWORK_ACCEPT_EVENT, std::string("mv-network-sync")}) {
    sender->registerInterest(label);
  }
  const int peer = connectPeer();
  bool sent_early = false;
  // Queues a message due at step 3 and one due at once behind it; leaves at step 5.
  sender->on_event = [&](const mv::Event* event) {
    if (const auto* step = dynamic_cast<const mv::EventStep*>(event)) {
      char byte;
      sent_early |= step->getStepCount() < 3 && recv(peer, &byte, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
      game.setGameOver(step->getStepCount() == 5);
    } else if (event->getType() == mv::NETWORK_ACCEPT_EVENT) {
      const int socket = static_cast<const mv::EventNetwork*>(event)->getSocket();
      network().queueMessage("mv-network-sync", "later", socket, 3);
      network().queueMessage("mv-network-sync", "now", socket, 0);
    }
  };
  sendRaw(peer, mv::frameMessage("mv-network-sync", "hello"));

  game.run();
  ASSERT_GE(sender->received.size(), 4u);
  const std::vector<std::string> first_frame(sender->received.begin(),
                                             sender->received.begin() + 4);
  EXPECT_EQ(first_frame, (std::vector<std::string>{"mv-step", "mv-network-accept",
                                                   "mv-network-sync 'hello'", "mv-step"}));
  EXPECT_FALSE(sent_early) << "a message due later holds back the one behind it";
  const std::string expected =
      mv::frameMessage("mv-network-sync", "later") + mv::frameMessage("mv-network-sync", "now");
  std::string got;
  char chunk[4096];
  withinTwoSeconds([&] {
    got.append(chunk, std::max(mv::sockets::receiveSome(peer, chunk, sizeof chunk), 0L));
    return got.size() >= expected.size();
  });
  EXPECT_EQ(got, expected);
  mv::sockets::closeSocket(peer);
  game.shutDown();
  EXPECT_FALSE(network().isServer());
}

}  // namespace
