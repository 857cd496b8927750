// Path search on show: a maze of walls and a walker that finds its own way to
// any free cell clicked, marking the cells still ahead as it walks. Escape
// leaves. With `--screenshot FILE` the program sends the walker to the far
// corner itself, saves a picture once it is a third of the way, and leaves.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "DemoShow.h"
#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventPath.h"
#include "EventStep.h"
#include "GameManager.h"
#include "Keyboard.h"
#include "LogManager.h"
#include "Mouse.h"
#include "ViewObject.h"
#include "geometry.h"

namespace {

// The same maze every run.
constexpr unsigned MAZE_SEED = 2024;
// About one wall in this many between two rooms opens as well, so that
// the maze has loops and the search has ways to choose between.
constexpr unsigned LOOP_CHANCE = 12;
// Cells per step: half a cell, so that each step of the walk can be seen.
constexpr float WALKER_SPEED = 0.5f;
// A screenshot run that somehow never gets a third of the way still ends.
constexpr int LAST_SCREENSHOT_STEP = 900;

const std::string HELP = "click to send the walker; Escape leaves";

// Rooms lie at odd coordinates, with a wall cell between each two neighbours
// until a passage opens it; the rim is wall throughout. Dug depth first from
// the top-left room, so every room can be reached from every other.
class Maze {
 public:
  Maze(int width, int height, unsigned seed)
      : columns(oddSideOfAtMost(width)),
        rows(oddSideOfAtMost(height)),
        walls(static_cast<std::size_t>(columns * rows), true),
        random(seed) {
    digPassages();
    openLoops();
  }

  int getColumns() const { return columns; }
  int getRows() const { return rows; }

  // Nothing outside the maze is wall.
  bool isWall(int x, int y) const {
    return x >= 0 && y >= 0 && x < columns && y < rows && walls[index(x, y)];
  }

  // The room farthest from the walker's start.
  mv::Vector farCorner() const {
    return mv::Vector(static_cast<float>(columns - 2), static_cast<float>(rows - 2));
  }

 private:
  struct Room {
    int x;
    int y;
  };

  // Odd, so that the rim is wall all round; at least one room, however small the window.
  static int oddSideOfAtMost(int cells) { return std::max(3, cells % 2 == 1 ? cells : cells - 1); }

  std::size_t index(int x, int y) const { return static_cast<std::size_t>(y * columns + x); }
  void open(int x, int y) { walls[index(x, y)] = false; }
  bool isRoom(int x, int y) const { return x > 0 && y > 0 && x < columns - 1 && y < rows - 1; }

  std::vector<Room> undugNeighbours(Room room) const {
    std::vector<Room> found;
    for (const Room step : {Room{2, 0}, Room{-2, 0}, Room{0, 2}, Room{0, -2}}) {
      const Room next{room.x + step.x, room.y + step.y};
      if (isRoom(next.x, next.y) && isWall(next.x, next.y)) {
        found.push_back(next);
      }
    }
    return found;
  }

  void digPassages() {
    std::vector<Room> trail{Room{1, 1}};
    open(1, 1);
    while (!trail.empty()) {
      const Room here = trail.back();
      const std::vector<Room> choices = undugNeighbours(here);
      if (choices.empty()) {
        trail.pop_back();
        continue;
      }
      const Room next = choices[random() % choices.size()];
      open((here.x + next.x) / 2, (here.y + next.y) / 2);
      open(next.x, next.y);
      trail.push_back(next);
    }
  }

  // A wall cell with rooms on two opposite sides stands between two rooms.
  void openLoops() {
    for (int y = 1; y < rows - 1; y++) {
      for (int x = 1; x < columns - 1; x++) {
        const bool between_rooms = (x % 2 == 0) != (y % 2 == 0);
        if (between_rooms && isWall(x, y) && random() % LOOP_CHANCE == 0) {
          open(x, y);
        }
      }
    }
  }

  int columns;
  int rows;
  std::vector<bool> walls;
  // Fixed by the standard for every platform, unlike the library's distributions.
  std::mt19937 random;
};

// One cell of the maze: it blocks the walker's search.
class Wall : public mv::Object {
 public:
  explicit Wall(mv::Vector cell) {
    setType("Wall");
    setPosition(cell);
  }

  int draw() override {
    return mv::DisplayManager::getInstance().drawCharacter(getPosition(), '#', 70, 110, 190, 0);
  }
};

// The line under the maze: what to do, after what just went wrong, if anything.
class HelpLine {
 public:
  explicit HelpLine(const Maze& maze) : line(new mv::ViewObject) {
    line->setPosition(mv::Vector(static_cast<float>(maze.getColumns()) * 0.5f,
                                 static_cast<float>(maze.getRows())));
    line->setBorder(false);
    line->setDrawValue(false);
    tell("");
  }

  void tell(const std::string& news) {
    line->setViewString(news.empty() ? HELP : news + " - " + HELP);
    line->setColor(news.empty() ? mv::WHITE : mv::RED);
  }

 private:
  mv::ViewObject* line;
};

// The cell whose background lies under the pointer: a cell's background
// stands a tenth of a cell left of its position and a fifth of one below it.
mv::Vector cellUnderPointer(mv::Vector pointer) {
  const mv::Vector world = mv::viewToWorld(pointer);
  return mv::Vector(std::floor(world.getX() + 0.1f), std::floor(world.getY() - 0.2f));
}

// Goes wherever it is sent. It passes through the corners that the search
// lets it cut, since a hard body would catch on them halfway.
class Walker : public mv::Object {
 public:
  Walker(const Maze& maze, HelpLine& help) : maze(maze), help(help) {
    setType("Walker");
    setSolidness(mv::SPECTRAL);
    setAltitude(3);
    setSpeed(WALKER_SPEED);
    setPosition(mv::Vector(1, 1));
    registerInterest(mv::MOUSE_EVENT);
  }

  void sendTo(mv::Vector cell) {
    if (maze.isWall(static_cast<int>(cell.getX()), static_cast<int>(cell.getY()))) {
      help.tell("that is a wall");
      return;
    }
    help.tell(findPath(cell) == 0 ? "" : "no way there");
  }

  int eventHandler(const mv::Event* event) override {
    if (event->getType() == mv::MOUSE_EVENT) {
      const auto* mouse = dynamic_cast<const mv::EventMouse*>(event);
      if (mouse->getMouseAction() == mv::CLICKED && mouse->getMouseButton() == mv::Mouse::LEFT) {
        sendTo(cellUnderPointer(mouse->getMousePosition()));
      }
      return 1;
    }
    if (event->getType() == mv::PATH_EVENT &&
        dynamic_cast<const mv::EventPath*>(event)->getResult() == 0) {
      help.tell("no way there");
    }
    return mv::Object::eventHandler(event);
  }

  int draw() override {
    drawPathAhead();
    return mv::DisplayManager::getInstance().drawCharacter(getPosition(), '@', mv::YELLOW, 0);
  }

  // A third of the nodes of a path found are behind the walker.
  bool isAThirdOfTheWay() const {
    const mv::Path path = getPath();
    const std::size_t nodes = path.getNodes().size();
    return nodes > 0 && static_cast<std::size_t>(path.getIndex()) * 3 >= nodes;
  }

 private:
  // The end of the path is an X, the cells on the way to it stars.
  void drawPathAhead() const {
    mv::DisplayManager& display = mv::DisplayManager::getInstance();
    const mv::Path path = getPath();
    const std::vector<mv::Vector>& nodes = path.getNodes();
    for (std::size_t i = static_cast<std::size_t>(path.getIndex()); i < nodes.size(); i++) {
      const bool goal = i + 1 == nodes.size();
      display.drawCharacter(nodes[i], goal ? 'X' : '*', goal ? mv::RED : mv::GREEN, 0);
    }
  }

  const Maze& maze;
  HelpLine& help;
};

// The picture is taken a third of the way along the walker's path.
class Show : public DemoShow {
 public:
  Show(const Walker& walker, std::string screenshot_file)
      : DemoShow(std::move(screenshot_file)), walker(walker) {}

 private:
  bool step(int step_count) override {
    return walker.isAThirdOfTheWay() || step_count == LAST_SCREENSHOT_STEP;
  }

  const Walker& walker;
};

void buildWalls(const Maze& maze) {
  for (int y = 0; y < maze.getRows(); y++) {
    for (int x = 0; x < maze.getColumns(); x++) {
      if (maze.isWall(x, y)) {
        new Wall(mv::Vector(static_cast<float>(x), static_cast<float>(y)));
      }
    }
  }
}

void buildMazeScreen(const Maze& maze, HelpLine& help, const std::string& screenshot) {
  buildWalls(maze);
  auto* walker = new Walker(maze, help);
  new Show(*walker, screenshot);
  if (!screenshot.empty()) {
    walker->sendTo(maze.farCorner());
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::string screenshot = screenshotFileFrom(argc, argv);
  // The font and the log live in the build directory; the window's size is the demo's own.
  std::filesystem::current_path(MORVANE_FONT_DIRECTORY);
  setenv("MORVANE_CONFIG", PATHS_DEMO_CONFIG, 0);

  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game.shutDown();
    return 1;
  }
  // The help line goes under the maze, with a row below it for its letters' tails.
  const mv::DisplayManager& display = mv::DisplayManager::getInstance();
  const Maze maze(display.getHorizontalChars(), display.getVerticalChars() - 2, MAZE_SEED);
  HelpLine help(maze);
  buildMazeScreen(maze, help, screenshot);
  game.run();
  game.shutDown();
  return 0;
}
