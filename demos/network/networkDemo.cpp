// Two processes keep one world in step over a socket. The server moves
// sprites about a field and, every frame, sends each client the byte records
// of what changed on them; the client builds its copies from those records
// alone and shows them where the server has them. Start the server, then the
// client:
//
//   network_demo server [--port P]
//   network_demo client [--host H] [--port P]
//
// Escape leaves either one; a client also leaves when its server does. With
// `--screenshot FILE` each saves a picture once 60 frames have gone from
// server to client, and leaves. With `--trace N` each prints the objects of
// every frame it sends or applies, and the server leaves after N such frames.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "Attribute.h"
#include "ByteReader.h"
#include "ByteWriter.h"
#include "DemoShow.h"
#include "DisplayManager.h"
#include "EventNetwork.h"
#include "EventStep.h"
#include "GameManager.h"
#include "LogManager.h"
#include "NetworkManager.h"
#include "ResourceManager.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "utility.h"

namespace {

constexpr int DEFAULT_PORT = 47800;
// The field's inside runs from (1,1) to these, within a border of '#'.
constexpr float FIELD_RIGHT = 62;
constexpr float FIELD_BOTTOM = 21;
constexpr int MOVERS = 8;
// Every so often the oldest mover goes and a new one comes, so that clients
// see objects made and deleted as well as moved.
constexpr int FRAMES_PER_RENEWAL = 100;
constexpr int SCREENSHOT_FRAMES = 60;
// The same movers every run.
constexpr unsigned MOVER_SEED = 7;

// A frame goes to each client in one message, so that the client applies it
// whole: the server's step, then the records of its objects back to back. A
// client's first frame holds every object in full, later ones what changed.
const std::string FULL_FRAME = "mv-network-create";
const std::string CHANGES = "mv-network-sync";
// The ids of the objects gone since the last frame, each as a 4-byte number.
const std::string GONE = "mv-network-delete";

// Whether a client has had the full records of every object yet: the value
// the network manager keeps with its connection.
constexpr int NEW_CLIENT = 0;
constexpr int UP_TO_DATE = 1;

struct Options {
  bool server = false;
  std::string host = mv::LOOPBACK_ADDRESS;
  int port = DEFAULT_PORT;
  int trace_frames = 0;
  std::string screenshot;
};

bool parseOptions(int argc, char* argv[], Options& options) {
  if (argc < 2 || (std::string(argv[1]) != "server" && std::string(argv[1]) != "client")) {
    return false;
  }
  options.server = std::string(argv[1]) == "server";
  for (int i = 2; i + 1 < argc; i += 2) {
    const std::string option = argv[i];
    const std::string value = argv[i + 1];
    if (option == "--host") {
      options.host = value;
    } else if (option == "--port") {
      options.port = mv::toInt(value);
    } else if (option == "--trace") {
      options.trace_frames = mv::toInt(value);
    } else if (option == "--screenshot") {
      options.screenshot = std::filesystem::absolute(value).string();
    } else {
      return false;
    }
  }
  return argc % 2 == 0;
}

// The border of the field, drawn by both sides.
class Field : public mv::Object {
 public:
  Field() {
    setType("Field");
    setSolidness(mv::SPECTRAL);
    setAltitude(0);
  }

  int draw() override {
    mv::DisplayManager& display = mv::DisplayManager::getInstance();
    for (float x = 0; x <= FIELD_RIGHT + 1; x++) {
      display.drawCharacter(mv::Vector(x, 0), '#', mv::BLUE, 0);
      display.drawCharacter(mv::Vector(x, FIELD_BOTTOM + 1), '#', mv::BLUE, 0);
    }
    for (float y = 1; y <= FIELD_BOTTOM; y++) {
      display.drawCharacter(mv::Vector(0, y), '#', mv::BLUE, 0);
      display.drawCharacter(mv::Vector(FIELD_RIGHT + 1, y), '#', mv::BLUE, 0);
    }
    return 0;
  }
};

// The line under the field.
mv::ViewObject* makeStatusLine() {
  auto* line = new mv::ViewObject;
  line->setPosition(mv::Vector((FIELD_RIGHT + 2) * 0.5f, FIELD_BOTTOM + 2));
  line->setBorder(false);
  line->setDrawValue(false);
  return line;
}

// "step 12: 4@(10.5,3.25) 5@(...)", exact to the last bit of each float, so
// that two sides print the same line only when they hold the same world.
void traceFrame(int step, const std::vector<const mv::Object*>& objects) {
  std::printf("step %d:", step);
  for (const mv::Object* object : objects) {
    const mv::Vector p = object->getPosition();
    std::printf(" %d@(%.9g,%.9g)", object->getId(), static_cast<double>(p.getX()),
                static_cast<double>(p.getY()));
  }
  std::printf("\n");
  std::fflush(stdout);
}

// The looks of the movers; both sides load them, and a record names its sprite.
const std::string SPRITES[] = {"ball", "spinner", "ship", "blink", "box"};

int loadSprites() {
  for (const std::string& sprite : SPRITES) {
    const std::string file = std::string(NETWORK_DEMO_SPRITES) + "/" + sprite + "-spr.txt";
    if (mv::ResourceManager::getInstance().loadSprite(file, sprite) != 0) {
      return -1;
    }
  }
  return 0;
}

// A sprite that crosses the field and bounces off its border.
class Mover : public mv::Object {
 public:
  explicit Mover(std::mt19937& random) {
    setType("Mover");
    setSolidness(mv::SPECTRAL);
    setSprite(SPRITES[random() % std::size(SPRITES)]);
    std::uniform_real_distribution<float> across(2, FIELD_RIGHT - 1);
    std::uniform_real_distribution<float> down(1, FIELD_BOTTOM);
    std::uniform_real_distribution<float> pace(-0.6f, 0.6f);
    setPosition(mv::Vector(across(random), down(random)));
    setVelocity(mv::Vector(pace(random), pace(random) * 0.5f));
    registerInterest(mv::STEP_EVENT);
  }

  int eventHandler(const mv::Event* event) override {
    if (event->getType() != mv::STEP_EVENT) {
      return Object::eventHandler(event);
    }
    bounce();
    return 1;
  }

 private:
  // Turns back before the next move would cross the border; the widest
  // sprite reaches a cell either side of its centre.
  void bounce() {
    const mv::Vector next = predictPosition();
    mv::Vector velocity = getVelocity();
    if (next.getX() < 2 || next.getX() > FIELD_RIGHT - 1) {
      velocity.setX(-velocity.getX());
    }
    if (next.getY() < 1 || next.getY() > FIELD_BOTTOM) {
      velocity.setY(-velocity.getY());
    }
    if (!(velocity == getVelocity())) {
      setVelocity(velocity);
    }
  }
};

// The step, then the record of each object: in full, or what changed on it.
std::string framePayload(int step, const std::deque<Mover*>& movers, bool full) {
  std::stringstream payload;
  mv::ByteWriter(payload).writeInt(step);
  for (Mover* mover : movers) {
    if (full || mover->isModified()) {
      mover->serialize(payload, full ? mv::ALL_OBJECT_ATTRIBUTES : mover->getModified() | mv::ID);
    }
  }
  return payload.str();
}

// Moves the movers, renews one now and then, and sends every client what
// it lacks: new clients the full records of all movers, the others what
// changed since the last frame and the ids of those gone.
class Server : public DemoShow {
 public:
  Server(const Options& options, int port)
      : DemoShow(options.screenshot),
        trace_frames(options.trace_frames),
        port(port),
        random(MOVER_SEED),
        status(makeStatusLine()) {
    for (int i = 0; i < MOVERS; i++) {
      movers.push_back(new Mover(random));
    }
  }

 private:
  bool step(int step_count) override {
    if (step_count > 0 && step_count % FRAMES_PER_RENEWAL == 0) {
      renewOldest();
    }
    const std::vector<int> clients = mv::NetworkManager::getInstance().getConnections();
    sendFrame(step_count, clients);
    frames_sent += clients.empty() ? 0 : 1;
    if (trace_frames > 0) {
      traceFrame(step_count, std::vector<const mv::Object*>(movers.begin(), movers.end()));
      mv::GameManager::getInstance().setGameOver(frames_sent >= trace_frames);
    }
    status->setViewString("server on port " + std::to_string(port) +
                          " - clients: " + std::to_string(clients.size()) + " - Escape leaves");
    return frames_sent >= SCREENSHOT_FRAMES;
  }

  void renewOldest() {
    mv::WorldManager::getInstance().markForDelete(movers.front());
    deleted.push_back(movers.front()->getId());
    movers.pop_front();
    movers.push_back(new Mover(random));
  }

  // The changes are written first, once for all who are up to date: a full
  // record counts its object as written too, and would leave them without.
  void sendFrame(int step_count, const std::vector<int>& clients) {
    mv::NetworkManager& network = mv::NetworkManager::getInstance();
    const std::string changes = framePayload(step_count, movers, false);
    std::stringstream gone;
    for (const int id : deleted) {
      mv::ByteWriter(gone).writeInt(id);
    }
    deleted.clear();
    for (const int client : clients) {
      if (network.getConnectionValue(client) == NEW_CLIENT) {
        network.sendMessage(FULL_FRAME, framePayload(step_count, movers, true), client);
        network.setConnectionValue(client, UP_TO_DATE);
        continue;
      }
      if (!gone.str().empty()) {
        network.sendMessage(GONE, gone.str(), client);
      }
      network.sendMessage(CHANGES, changes, client);
    }
  }

  int trace_frames;
  int port;
  std::mt19937 random;
  mv::ViewObject* status;
  std::deque<Mover*> movers;
  std::vector<int> deleted;
  int frames_sent = 0;
};

// Keeps a copy of every object the server tells of, built and changed by its
// records alone, and leaves when the server goes.
class Client : public DemoShow {
 public:
  explicit Client(const Options& options)
      : DemoShow(options.screenshot),
        tracing(options.trace_frames > 0),
        server(options.host + " port " + std::to_string(options.port)),
        status(makeStatusLine()) {
    for (const std::string& label :
         {FULL_FRAME, CHANGES, GONE, mv::NETWORK_CONNECT_EVENT, mv::NETWORK_CLOSE_EVENT}) {
      registerInterest(label);
    }
    status->setViewString("connecting to " + server + " - Escape leaves");
  }

  int eventHandler(const mv::Event* event) override {
    if (!mv::isNetworkEvent(event->getType())) {
      return DemoShow::eventHandler(event);
    }
    if (event->getType() == mv::NETWORK_CONNECT_EVENT) {
      connected = true;
      status->setViewString("waiting for the server - Escape leaves");
      return 1;
    }
    if (event->getType() == mv::NETWORK_CLOSE_EVENT) {
      if (!connected) {
        std::fprintf(stderr, "network_demo: no server at %s; see the log\n", server.c_str());
      }
      server_gone = true;
      return 1;
    }
    const auto* message = static_cast<const mv::EventNetwork*>(event);
    std::stringstream payload(
        std::string(message->getMessage(), static_cast<std::size_t>(message->getBytes())));
    if (event->getType() == GONE) {
      removeAll(payload);
    } else {
      applyFrame(payload);
    }
    return 1;
  }

 private:
  // A client whose server has gone leaves at the next frame, once it has
  // taken the picture that the frames it applied may have made ready.
  bool step(int) override {
    mv::GameManager::getInstance().setGameOver(server_gone);
    return frames_applied >= SCREENSHOT_FRAMES;
  }

  void removeAll(std::stringstream& payload) {
    mv::ByteReader ids(payload, "Client::removeAll()");
    int id = 0;
    while (payload.peek() != EOF && ids.readInt(id)) {
      const auto found = copies.find(id);
      if (found != copies.end()) {
        mv::WorldManager::getInstance().markForDelete(found->second);
        copies.erase(found);
      }
    }
  }

  void applyFrame(std::stringstream& payload) {
    int server_step = 0;
    if (!mv::ByteReader(payload, "Client::applyFrame()").readInt(server_step)) {
      return;
    }
    while (payload.peek() != EOF && applyRecord(payload)) {
    }
    frames_applied++;
    if (tracing) {
      std::vector<const mv::Object*> objects;
      for (const auto& [id, copy] : copies) {
        objects.push_back(copy);
      }
      traceFrame(server_step, objects);
    }
    status->setViewString("client at server step " + std::to_string(server_step) +
                          " - movers: " + std::to_string(copies.size()) + " - Escape leaves");
  }

  // Every record the server sends begins with its mask and the object's id,
  // which tell whose copy it changes, or that a new copy is due.
  bool applyRecord(std::stringstream& payload) {
    const std::streampos start = payload.tellg();
    mv::ByteReader head(payload, "Client::applyRecord()");
    std::uint32_t mask = 0;
    int id = 0;
    if (!head.readUnsigned(mask) || !head.readInt(id) || (mask & mv::ID) == 0) {
      mv::LogManager::getInstance().writeLog(
          "Client::applyRecord(): Error! A record without an id.");
      return false;
    }
    payload.seekg(start);
    mv::Object*& copy = copies[id];
    if (copy == nullptr) {
      copy = new mv::Object;
    }
    return copy->deserialize(payload) == 0;
  }

  bool tracing;
  std::string server;
  mv::ViewObject* status;
  // The copies by the server's ids.
  std::map<int, mv::Object*> copies;
  int frames_applied = 0;
  bool connected = false;
  bool server_gone = false;
};

// 0 once the role has its socket: the server listening, the client connecting.
int startRole(const Options& options) {
  mv::NetworkManager& network = mv::NetworkManager::getInstance();
  if (options.server) {
    if (network.startServer(options.port) != 0) {
      std::fprintf(stderr, "network_demo: can't serve on port %d; see the log\n", options.port);
      return -1;
    }
    std::printf("network_demo: serving on port %d\n", network.getPort());
    std::fflush(stdout);
    new Server(options, network.getPort());
    return 0;
  }
  if (network.connect(options.host, options.port) < 0) {
    std::fprintf(stderr, "network_demo: can't connect to %s port %d; see the log\n",
                 options.host.c_str(), options.port);
    return -1;
  }
  new Client(options);
  return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
  Options options;
  if (!parseOptions(argc, argv, options)) {
    std::fprintf(stderr,
                 "usage: network_demo server|client [--host H] [--port P] [--trace N] "
                 "[--screenshot FILE]\n");
    return 2;
  }
  // The font lives in the build directory; the window's size is the demo's
  // own, and each side keeps a log of its own.
  std::filesystem::current_path(MORVANE_FONT_DIRECTORY);
  setenv("MORVANE_CONFIG", NETWORK_DEMO_CONFIG, 0);
  setenv("MORVANE_LOG", options.server ? "network-server.log" : "network-client.log", 0);

  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game.shutDown();
    return 1;
  }
  new Field;
  const int started = loadSprites() == 0 ? startRole(options) : -1;
  if (started == 0) {
    game.run();
  }
  game.shutDown();
  return started == 0 ? 0 : 1;
}
