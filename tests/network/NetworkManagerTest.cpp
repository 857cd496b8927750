#include "NetworkManager.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <vector>

#include "EventNetwork.h"
#include "EventStep.h"
#include "GameManager.h"
#include "LogManager.h"
#include "RecordingObject.h"
#include "ScratchDirectory.h"
#include "WorldTest.h"
#include "logLines.h"
#include "loopbackPeer.h"
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

// A peer of our own that never waits.
int connectPeer(int port = network().getPort()) {
  const int peer = mv_test::connectLoopback(port);
  fcntl(peer, F_SETFL, O_NONBLOCK);
  return peer;
}

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
    for (const auto* labels : {&mv::MESSAGE_LABELS, &mv::CONNECTION_LABELS}) {
      for (const std::string& label : *labels) {
        EXPECT_EQ(listener->registerInterest(label), 0) << label;
      }
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

  EXPECT_EQ(network().send("x", 1, 42), -1);
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
  EXPECT_TRUE(
      logged("NetworkManager::connect(): Error! '127.0.0.1' port 0 is no address to "
             "connect to."));
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
  int server_side = -1;
  // The server's side hangs up as soon as the ping comes, from within its handler.
  listener->on_event = [&](const mv::Event* event) {
    sockets_seen.push_back(static_cast<const mv::EventNetwork*>(event)->getSocket());
    if (event->getType() == "mv-network-sync") {
      network().close(server_side);
    }
  };
  const int client = network().connect(mv::LOOPBACK_ADDRESS, network().getPort());
  ASSERT_GE(client, 0);
  server_side = acceptOne();
  ASSERT_GE(server_side, 0);

  EXPECT_EQ(network().sendMessage("mv-network-sync", "ping", client), 0);
  EXPECT_EQ(network().sendMessage("mv-custom-network", std::string("p\0ng", 4), server_side), 0);
  ASSERT_TRUE(pollUntil([&] { return listener->received.size() >= 5; }));
  EXPECT_EQ(network().sendMessage("mv-network-accept", "fake", client), -1)
      << "a peer can't pretend to be a connection";

  ASSERT_TRUE(pollUntil([&] { return !network().isConnected(-1); }));
  const std::vector<std::string> expected = {
      "mv-network-accept",      "mv-network-connect", std::string("mv-custom-network 'p\0ng'", 24),
      "mv-network-sync 'ping'", "mv-network-close",   "mv-network-close"};
  EXPECT_EQ(listener->received, expected)
      << "the connect comes in a poll, and connections are read in the order they came";
  EXPECT_EQ(sockets_seen,
            (std::vector<int>{server_side, client, client, server_side, server_side, client}));
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
       "Error! Socket # took 3 polls over a message and sent only 8 bytes of it; closing it."},
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
    if (hostile.line.find("polls") != std::string::npos) {
      network().receive();
      network().receive();
      EXPECT_TRUE(network().isConnected(socket)) << "two polls are within the limit of three";
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

// Every byte a peer is sent until our side closes it.
std::string readToTheEnd(int peer) {
  std::string stream;
  std::vector<char> chunk(1 << 16);
  withinTwoSeconds([&] {
    long got;
    while ((got = mv::sockets::receiveSome(peer, chunk.data(), chunk.size())) > 0) {
      stream.append(chunk.data(), static_cast<std::size_t>(got));
    }
    return got == 0;
  });
  return stream;
}

// The payload of the i-th big message: a megabyte less one of one letter.
std::string bigPayload(int i) { return std::string(mv::MAX_MESSAGE_BODY - 1, 'a' + i); }

// A burst larger than the system's buffers waits for a peer that reads, and
// arrives whole; a peer that never reads gets what waited, whole and in order,
// until more than its cap waits.
TEST_F(NetworkTest, ABurstWaitsForAReaderAndASlowPeerGetsItWholeTillMoreThanTheCapWaits) {
  serve();
  const int client = network().connect(mv::LOOPBACK_ADDRESS, network().getPort());
  const int server_side = acceptOne();
  std::vector<std::string> arrived;
  listener->on_event = [&](const mv::Event* event) {
    const auto* message = static_cast<const mv::EventNetwork*>(event);
    if (event->getType() == "mv-network-sync") {
      arrived.emplace_back(message->getMessage(), message->getBytes());
    }
  };
  for (int i = 0; i < 6; i++) {
    ASSERT_EQ(network().sendMessage("mv-network-sync", bigPayload(i), server_side), 0);
  }
  EXPECT_GT(network().getWaitingBytes(server_side), 0u) << "more than the system takes at once";
  ASSERT_TRUE(withinTwoSeconds([&] {
    network().flushDelayed();
    network().receive();
    return arrived.size() == 6;
  }));
  for (int i = 0; i < 6; i++) {
    EXPECT_TRUE(arrived[static_cast<std::size_t>(i)] == bigPayload(i)) << "message " << i;
  }
  EXPECT_EQ(network().getWaitingBytes(server_side), 0u);
  EXPECT_TRUE(network().isConnected(client));

  network().setOutgoingCap(4 << 20);
  const int peer = connectPeer();
  const int socket = acceptOne();
  int sent = 0;
  while (sent < 20 && network().sendMessage("mv-network-sync", bigPayload(sent), socket) == 0) {
    sent++;
  }
  EXPECT_LT(sent, 20);
  EXPECT_FALSE(network().isConnected(socket));
  EXPECT_TRUE(
      logHas("NetworkManager::sendMessage(): Error! Socket " + std::to_string(socket) + " has "));
  EXPECT_TRUE(logHas("bytes waiting to go, more than its cap of 4194304; closing it."));
  EXPECT_EQ(logHas("Return is -1"), false) << "a socket that takes no more is no error";

  // Each message that arrived whole is the next one sent.
  const std::string stream = readToTheEnd(peer);
  const std::size_t frame = mv::MESSAGE_HEADER_BYTES + mv::MAX_MESSAGE_BODY;
  ASSERT_GE(stream.size(), frame);
  for (std::size_t i = 0; i < stream.size() / frame; i++) {
    EXPECT_TRUE(stream.substr(i * frame, frame) ==
                mv::frameMessage("mv-network-sync", bigPayload(static_cast<int>(i))))
        << "message " << i;
  }
  mv::sockets::closeSocket(peer);
}

TEST_F(NetworkTest, AConnectAnswersAtOnceAndOneThatCannotOpenClosesWithItsReason) {
  network().setConnectTimeout(200);
  serve();
  const int gone = mv::sockets::listenOn(mv::LOOPBACK_ADDRESS, 0, 1);
  const int closed_port = mv::sockets::localPort(gone);
  mv::sockets::closeSocket(gone);
  // A listener with no room left in its backlog lets the next connect wait unanswered.
  const int full = mv::sockets::listenOn(mv::LOOPBACK_ADDRESS, 0, 0);
  const int full_port = mv::sockets::localPort(full);
  const int filler = connectPeer(full_port);
  const struct {
    std::string host;
    int port;
    std::string reason;
  } cases[] = {
      {mv::LOOPBACK_ADDRESS, closed_port, "Connection refused"},
      {mv::LOOPBACK_ADDRESS, full_port, "no answer within 200 ms"},
      {"no-such-host.invalid", 9, "no address found for the name: "},
      {"255.255.255.255", 9, "Network is unreachable"},
      // The server listens on 127.0.0.1 alone.
      {"127.0.0.2", network().getPort(), "Connection refused"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reason);
    listener->received.clear();
    const int socket = network().connect(c.host, c.port);
    ASSERT_GE(socket, 0);
    EXPECT_EQ(network().sendMessage("mv-network-sync", "waits", socket), 0);
    ASSERT_TRUE(pollUntil([&] { return !listener->received.empty(); }));
    EXPECT_EQ(listener->received, std::vector<std::string>{"mv-network-close"});
    EXPECT_TRUE(logHas("NetworkManager::connect(): Error! Connecting to " + c.host + " port " +
                       std::to_string(c.port) + " failed: " + c.reason));
  }
  mv::sockets::closeSocket(filler);
  mv::sockets::closeSocket(full);

  listener->received.clear();
  const int by_name = network().connect("localhost", network().getPort());
  ASSERT_TRUE(pollUntil([&] { return listener->received.size() == 1; }));
  EXPECT_EQ(listener->received, std::vector<std::string>{"mv-network-connect"});
  EXPECT_TRUE(network().isConnected(by_name));
}

// A peer that trickles a message byte by byte is closed by the stall limit
// although bytes keep coming; a flood waits its turn at the delivery cap, by
// count and by bytes, and arrives whole and in order though its peer hung up.
TEST_F(NetworkTest, ATrickleIsClosedAndAFloodIsHandedOnAtTheCapWithNothingLost) {
  serve();
  network().setStallLimit(5);
  const int trickler = connectPeer();
  const int trickling = acceptOne();
  const std::string frame = mv::frameMessage("mv-network-sync", "0123456789");
  for (std::size_t i = 0; i < frame.size() && network().getConnections().size() == 1; i++) {
    sendRaw(trickler, frame.substr(i, 1));
    network().receive();
  }
  EXPECT_TRUE(logHas("NetworkManager::receive(): Error! Socket " + std::to_string(trickling) +
                     " took 5 polls over a message"));
  mv::sockets::closeSocket(trickler);

  const int flooder = connectPeer();
  acceptOne();
  listener->received.clear();
  std::string flood;
  for (int i = 0; i < 5000; i++) {
    std::string payload = std::to_string(i);
    flood += mv::frameMessage("mv-network-sync", payload.append(100 - payload.size(), '.'));
  }
  sendRaw(flooder, flood);
  mv::sockets::closeSocket(flooder);
  std::vector<int> per_poll;
  const struct {
    int messages;
    std::size_t bytes;
  } caps[] = {{50, 1 << 20}, {1000, 1000}, {1000, 1 << 20}};
  for (const auto& cap : caps) {
    network().setDeliveryCap(cap.messages, cap.bytes);
    per_poll.push_back(network().receive());
  }
  ASSERT_TRUE(pollUntil([&] { return !network().isConnected(-1); }));
  EXPECT_EQ(per_poll, (std::vector<int>{50, 10, 1000}));
  ASSERT_EQ(listener->received.size(), 5001u);
  for (int i = 0; i < 5000; i += 499) {
    std::string payload = std::to_string(i);
    EXPECT_EQ(listener->received[static_cast<std::size_t>(i)],
              "mv-network-sync '" + payload.append(100 - payload.size(), '.') + "'");
  }
  EXPECT_EQ(listener->received.back(), "mv-network-close");
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
  bool sent_when_due = false;
  // Queues a message due at step 3 and one due at once behind it; leaves at step 5.
  sender->on_event = [&](const mv::Event* event) {
    if (const auto* step = dynamic_cast<const mv::EventStep*>(event)) {
      char byte;
      const bool arrived = recv(peer, &byte, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
      sent_early |= step->getStepCount() < 3 && arrived;
      sent_when_due |= step->getStepCount() == 4 && arrived;
      game.setGameOver(step->getStepCount() == 5);
    } else if (event->getType() == mv::NETWORK_ACCEPT_EVENT) {
      const int socket = static_cast<const mv::EventNetwork*>(event)->getSocket();
      network().queueMessage("mv-network-sync", "later", socket, 3);
      network().queueMessage("mv-network-sync", "now", socket, 0);
    }
  };
  sendRaw(peer, mv::frameMessage("mv-network-sync", "hello"));

  game.run();
  sender->received.resize(4);
  EXPECT_EQ(sender->received, (std::vector<std::string>{"mv-step", "mv-network-accept",
                                                        "mv-network-sync 'hello'", "mv-step"}))
      << "the first frame";
  EXPECT_FALSE(sent_early) << "a message due later holds back the one behind it";
  EXPECT_TRUE(sent_when_due) << "and goes in the frame of its step";
  game.shutDown();
  EXPECT_FALSE(network().isServer());
  EXPECT_EQ(readToTheEnd(peer), mv::frameMessage("mv-network-sync", "later") +
                                    mv::frameMessage("mv-network-sync", "now"));
  mv::sockets::closeSocket(peer);
}

}  // namespace
