#include "DisplayManager.h"

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <new>

#include "CellBatch.h"
#include "CellComposer.h"
#include "Config.h"
#include "LogManager.h"
#include "WindowPainter.h"
#include "colorToSFML.h"
#include "windowOnDesktop.h"
#include "geometry.h"
#include "utility.h"

// Last: Xlib defines macros that would clash with names in SFML's headers.
#include <X11/Xlib.h>

namespace mv {

namespace {

LogManager& log() { return LogManager::getInstance(); }

// The size the text is made with, before the grid's own size is set.
constexpr unsigned INITIAL_CHARACTER_SIZE = 30;

// Larger glyphs would not fit in a font texture; smaller ones draw nothing.
constexpr float LARGEST_CHARACTER_SIZE = 512.0f;

// Larger windows are mistakes in the configuration, not screens.
constexpr int LARGEST_WINDOW_SIDE = 32767;

// The whole picture is put into the window again after this many frames, so
// that a window that was covered and uncovered soon shows all of it again.
constexpr int MOST_FRAMES_NOT_SHOWN = 30;

// A connection to the display server, closed when it goes.
using DisplayConnection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

// SFML ends the whole process when it finds no display server, so look first.
// The look stays connected while the window is made: a server that loses its
// last client starts afresh and turns away whoever comes in that moment.
DisplayConnection connectToDisplayServer() {
  return DisplayConnection(XOpenDisplay(nullptr), &XCloseDisplay);
}

// A text draws no glyph for these characters, only moves on.
bool isBlank(sf::Uint32 code_point) {
  return code_point == ' ' || code_point == '\t' || code_point == '\n' || code_point == '\r';
}

bool endsWithPng(const std::string& file) {
  const std::string suffix = ".png";
  if (file.size() <= suffix.size()) {
    return false;
  }
  return std::equal(
      suffix.begin(), suffix.end(), file.end() - suffix.size(),
      [](char want, char have) { return want == std::tolower(static_cast<unsigned char>(have)); });
}

// The font file to open for `wanted`: itself if it is there; else the first
// that is of the same name beside the program, the installed engine's copy of
// its font, and the system's. `wanted` when none is, so that its name is told.
std::string findFont(const std::string& wanted) {
  namespace fs = std::filesystem;
  std::error_code failed;
  const fs::path program = fs::read_symlink("/proc/self/exe", failed);
  const std::string candidates[] = {
      wanted, failed ? std::string() : (program.parent_path() / fs::path(wanted).filename()).string(),
      std::string(MORVANE_DATA_DIR) + "/mv-font.ttf", MORVANE_SYSTEM_FONT};
  for (const std::string& candidate : candidates) {
    if (!candidate.empty() && fs::is_regular_file(candidate, failed)) {
      return candidate;
    }
  }
  return wanted;
}

// White for colours that carry no red, green and blue of their own.
void rgbOf(Color color, unsigned char& r, unsigned char& g, unsigned char& b) {
  r = g = b = 255;
  colorToRGB(color, r, g, b);
}

// A window asked for larger than the desktop is made smaller, with the same
// cells; a full screen takes its size as asked.
sf::Vector2i windowSizeOnDesktop(sf::Vector2i configured, sf::Vector2i cells,
                                 sf::Vector2i desktop, bool fullscreen) {
  if (fullscreen) {
    return withDesktopSides(configured, desktop);
  }
  const sf::Vector2i fitted = fitOnDesktop(configured, cells, desktop);
  if (fitted != withDesktopSides(configured, desktop)) {
    log().writeLog(
        "DisplayManager::startUp(): A window of %d by %d pixels does not fit a desktop of %d by "
        "%d: it is drawn at %d by %d.",
        configured.x, configured.y, desktop.x, desktop.y, fitted.x, fitted.y);
  }
  return fitted;
}

// A window is placed by the display itself, not left to where it first opens,
// which is not always on the screen.
void placeOnDesktop(sf::RenderWindow& window, sf::Vector2i desktop) {
  const sf::Vector2i corner = centreOnDesktop(sf::Vector2i(window.getSize()), desktop);
  window.setPosition(corner);
  log().writeLog(5, "DisplayManager::startUp(): window placed at (%d, %d) on a desktop of %d by %d.",
                 corner.x, corner.y, desktop.x, desktop.y);
}

}  // namespace

struct DisplayManager::Graphics {
  // Closes the window and frees the drawables; pending cells are dropped.
  void release();

  // Lays one cell into the picture, the batch or straight into the window, as the display is set.
  void drawCell(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, sf::Color color,
                float rotation, bool batching, bool composing);
  void drawCellAlone(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, sf::Color color,
                     float rotation);
  void batchCell(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, sf::Color color,
                 float rotation);
  const sf::Glyph* glyphOf(char ch);
  void drawBatch();
  // Puts into the window all that this frame has drawn so far.
  void drawPending();
  // Puts the picture of this frame's composed cells into the window, under
  // whatever comes after; from then on this frame's cells go in the batch.
  void paintPicture();
  // Shows a frame of the picture alone, straight through X; false when it can't.
  bool putPicture();
  // Shows what this frame drew and starts the next one.
  void show();
  void startFrame();
  void clearToBackground();

  std::unique_ptr<sf::Font> font;
  std::unique_ptr<sf::RenderWindow> window;
  std::unique_ptr<sf::RectangleShape> rectangle;
  sf::Color window_background_color = sf::Color::Black;
  std::unique_ptr<sf::Text> text;

  unsigned character_size = INITIAL_CHARACTER_SIZE;
  // What the text makes of each char: the code point it looks up in the font.
  std::array<sf::Uint32, 256> code_points{};
  // The font's glyph of each char once looked up; null for blanks and chars not yet looked up.
  std::array<const sf::Glyph*, 256> glyphs{};
  CellBatch batch;
  // Null when the graphics card can't hold a picture of the window's size.
  std::unique_ptr<CellComposer> composer;
  // Null when the window's pixels are laid out in a way it doesn't know.
  std::unique_ptr<WindowPainter> painter;
  // Whether nothing has been drawn into the window since the frame began, so
  // that cells may still join the picture.
  bool picture_open = true;
  // Whether the window shows the picture as composed last and nothing over it.
  bool showing_picture_alone = false;
  int frames_not_shown = 0;
  // Whether the window shows nothing but the background since it was last cleared.
  bool window_plain = false;
};

float charWidth() {
  const DisplayManager& display = DisplayManager::getInstance();
  return static_cast<float>(display.getHorizontalPixels()) /
         static_cast<float>(display.getHorizontalChars());
}

float charHeight() {
  const DisplayManager& display = DisplayManager::getInstance();
  return static_cast<float>(display.getVerticalPixels()) /
         static_cast<float>(display.getVerticalChars());
}

Vector spacesToPixels(Vector spaces) {
  const Vector pixels(spaces.getX() * charWidth(), spaces.getY() * charHeight());
  log().writeLog(30, "spacesToPixels(int): spaces (%.2f,%.2f) = pixels (%.2f,%.2f)", spaces.getX(),
                 spaces.getY(), pixels.getX(), pixels.getY());
  return pixels;
}

Vector pixelsToSpaces(Vector pixels) {
  const Vector spaces(pixels.getX() / charWidth(), pixels.getY() / charHeight());
  log().writeLog(30, "pixelsToSpaces(): pixels (%.2f,%.2f) = spaces (%.2f,%.2f)", pixels.getX(),
                 pixels.getY(), spaces.getX(), spaces.getY());
  return spaces;
}

DisplayManager::DisplayManager()
    : window_horizontal_pixels(Config::getInstance().getWindowHorizontalPixels()),
      window_vertical_pixels(Config::getInstance().getWindowVerticalPixels()),
      window_horizontal_chars(Config::getInstance().getWindowHorizontalChars()),
      window_vertical_chars(Config::getInstance().getWindowVerticalChars()),
      graphics(std::make_unique<Graphics>()),
      batching(true),
      composing(true) {
  setType("DisplayManager");
}

// Graphics must not outlive the program's last moment with an open display,
// so a window left by a failed start goes here, not at some later exit.
DisplayManager::~DisplayManager() { graphics->release(); }

DisplayManager& DisplayManager::getInstance() {
  static DisplayManager instance;
  return instance;
}

int DisplayManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  if (readGrid() != 0) {
    return -1;
  }
  if (Config::getInstance().getHeadless()) {
    log().writeLog(1, "DisplayManager::startUp(): no graphics in headless mode.");
  } else if (createWindow() != 0 || loadFont() != 0 || createDrawables() != 0) {
    return -1;
  }
  Manager::startUp();
  log().writeLog(5, "DisplayManager::startUp(): successfully started.");
  return 0;
}

int DisplayManager::readGrid() {
  const Config& config = Config::getInstance();
  const int horizontal_pixels = config.getWindowHorizontalPixels();
  const int vertical_pixels = config.getWindowVerticalPixels();
  const int horizontal_chars = config.getWindowHorizontalChars();
  const int vertical_chars = config.getWindowVerticalChars();
  const auto fits = [](int value, int least) {
    return value >= least && value <= LARGEST_WINDOW_SIDE;
  };
  if (!fits(horizontal_pixels, 0) || !fits(vertical_pixels, 0) || !fits(horizontal_chars, 1) ||
      !fits(vertical_chars, 1)) {
    log().writeLog(
        "DisplayManager::startUp(): Error! A window of %d by %d pixels and %d by %d characters "
        "can't be drawn: pixels 0 (the desktop's) to %d, characters 1 to %d.",
        horizontal_pixels, vertical_pixels, horizontal_chars, vertical_chars, LARGEST_WINDOW_SIDE,
        LARGEST_WINDOW_SIDE);
    return -1;
  }
  window_horizontal_pixels = horizontal_pixels;
  window_vertical_pixels = vertical_pixels;
  window_horizontal_chars = horizontal_chars;
  window_vertical_chars = vertical_chars;
  return 0;
}

int DisplayManager::createWindow() {
  const DisplayConnection server = connectToDisplayServer();
  if (server == nullptr) {
    const char* display = std::getenv("DISPLAY");
    log().writeLog("DisplayManager::startUp(): Error! No display server at DISPLAY '%s'.",
                   display != nullptr ? display : "");
    log().writeLog("DisplayManager::startUp(): Unable to allocate window!");
    return -1;
  }
  const sf::VideoMode desktop_mode = sf::VideoMode::getDesktopMode();
  const sf::Vector2i desktop(static_cast<int>(desktop_mode.width),
                             static_cast<int>(desktop_mode.height));
  log().writeLog(5, "DisplayManager::startUp(): window resolution (%d, %d) pixels.", desktop.x,
                 desktop.y);
  const Config& config = Config::getInstance();
  const bool fullscreen = config.getWindowState() == 1;
  const sf::Vector2i size = windowSizeOnDesktop(
      sf::Vector2i(window_horizontal_pixels, window_vertical_pixels),
      sf::Vector2i(window_horizontal_chars, window_vertical_chars), desktop, fullscreen);

  sf::Uint32 style = static_cast<sf::Uint32>(config.getWindowStyle());
  if (fullscreen) {
    style |= sf::Style::Fullscreen;
  }
  const sf::VideoMode mode(static_cast<unsigned>(size.x), static_cast<unsigned>(size.y), 32);
  std::unique_ptr<sf::RenderWindow>& window = graphics->window;
  window.reset(new (std::nothrow)
                   sf::RenderWindow(mode, config.getWindowTitle(), style, sf::ContextSettings()));
  if (window == nullptr || !window->isOpen()) {
    log().writeLog("DisplayManager::startUp(): Unable to allocate window!");
    return -1;
  }
  // Cells convert to pixels by the size the window was given, which is not
  // always the size asked for.
  const sf::Vector2u given = window->getSize();
  window_horizontal_pixels = static_cast<int>(given.x);
  window_vertical_pixels = static_cast<int>(given.y);
  if (!fullscreen) {
    placeOnDesktop(*window, desktop);
  }
  window->setMouseCursorVisible(config.getShowMouse());
  window->setVerticalSyncEnabled(true);
  return 0;
}

int DisplayManager::loadFont() {
  const std::string wanted = Config::getInstance().getFontFile();
  const std::string file = findFont(wanted);
  if (file != wanted) {
    log().writeLog("DisplayManager::startUp(): Font '%s' is not in the working directory; taking '%s'.",
                   wanted.c_str(), file.c_str());
  }
  graphics->font = std::make_unique<sf::Font>();
  if (!graphics->font->loadFromFile(file)) {
    log().writeLog("DisplayManager::startUp(): Error! Unable to open font from file '%s'.",
                   file.c_str());
    return -1;
  }
  return 0;
}

int DisplayManager::createDrawables() {
  Graphics& g = *graphics;
  g.rectangle.reset(new (std::nothrow) sf::RectangleShape(sf::Vector2f(charWidth(), charHeight())));
  if (g.rectangle == nullptr) {
    log().writeLog("DisplayManager::startUp(): Error! Unable to allocate rectangle.");
    return -1;
  }
  g.text.reset(new (std::nothrow) sf::Text("", *g.font, INITIAL_CHARACTER_SIZE));
  if (g.text == nullptr) {
    log().writeLog("DisplayManager::startUp(): Error! Unable to allocate text.");
    return -1;
  }
  g.text->setStyle(sf::Text::Bold);
  g.character_size = characterSizeForCells();
  g.text->setCharacterSize(g.character_size);

  g.window_background_color = colorToSFML(Config::getInstance().getWindowBackgroundColor());
  g.rectangle->setFillColor(g.window_background_color);
  g.batch.setBackground(sf::Vector2f(charWidth(), charHeight()), g.window_background_color);

  // The text turns its string into code points through the current locale; the batch
  // must find the very same glyphs.
  for (unsigned c = 0; c < g.code_points.size(); ++c) {
    g.code_points[c] = sf::String(std::string(1, static_cast<char>(c)))[0];
  }
  g.glyphs.fill(nullptr);

  g.composer = std::make_unique<CellComposer>();
  if (!g.composer->create(g.window->getSize(), sf::Vector2f(charWidth(), charHeight()),
                          g.window_background_color, *g.text)) {
    g.composer.reset();
  }
  g.painter = std::make_unique<WindowPainter>();
  if (!g.window->setActive(true) || !g.painter->open(g.window->getSystemHandle())) {
    log().writeLog(5, "DisplayManager::startUp(): pictures go through the graphics card alone.");
    g.painter.reset();
  }
  g.startFrame();
  return 0;
}

unsigned DisplayManager::characterSizeForCells() const {
  const float scale = Config::getInstance().getFontScale();
  const float size = scale * std::min(charWidth(), charHeight());
  if (size >= 1.0f && size <= LARGEST_CHARACTER_SIZE) {
    return static_cast<unsigned>(size);
  }
  const unsigned held = size > LARGEST_CHARACTER_SIZE ? LARGEST_CHARACTER_SIZE : 1;
  log().writeLog(
      "DisplayManager::startUp(): Warning! Font scale %.2f gives characters of %.2f pixels; "
      "drawing them at %u.",
      scale, size, held);
  return held;
}

void DisplayManager::shutDown() {
  graphics->release();
  Manager::shutDown();
  log().writeLog(5, "DisplayManager::shutDown(): successfully stopped.");
}

void DisplayManager::Graphics::release() {
  batch.clear();
  painter.reset();
  composer.reset();
  if (window != nullptr) {
    window->close();
    window.reset();
  }
  text.reset();
  rectangle.reset();
  font.reset();
}

int DisplayManager::drawCharacter(Vector world_pos, char ch, unsigned char r, unsigned char g,
                                  unsigned char b, float rotation) {
  if (!isStarted()) {
    log().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  // Cells are placed on the screen, which shows the world from the view's corner.
  const Vector on_screen = worldToView(world_pos);
  for (CellRecorder* recorder : cell_recorders) {
    recorder->recordCell(on_screen, ch, r, g, b);
  }
  if (graphics->window == nullptr) {
    // Headless, a recorder stands in for the screen: the cell was taken.
    return cell_recorders.empty() ? -1 : 0;
  }
  const Vector pixel = spacesToPixels(on_screen);
  const sf::Vector2f glyph_at(pixel.getX(), pixel.getY());
  // The background stands a tenth of a cell left of the glyph and a fifth
  // below it, where it frames the ink of a glyph that hangs from its origin.
  const sf::Vector2f background_at(pixel.getX() - charWidth() / 10,
                                   pixel.getY() + charHeight() / 5);
  graphics->drawCell(background_at, glyph_at, ch, sf::Color(r, g, b), rotation, batching,
                     composing);
  return 0;
}

void DisplayManager::Graphics::drawCell(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch,
                                        sf::Color color, float rotation, bool batching,
                                        bool composing) {
  if (batching && composing && picture_open && composer != nullptr && rotation == 0.0f) {
    // A cell that the picture refuses goes in the batch, drawn over the picture.
    if (!composer->add(background_at, glyph_at, ch, glyphOf(ch), color)) {
      batchCell(background_at, glyph_at, ch, color, rotation);
    }
    return;
  }
  paintPicture();
  if (batching) {
    batchCell(background_at, glyph_at, ch, color, rotation);
  } else {
    drawCellAlone(background_at, glyph_at, ch, color, rotation);
  }
}

int DisplayManager::drawCharacter(Vector world_pos, char ch, Color color, float rotation) {
  unsigned char r, g, b;
  rgbOf(color, r, g, b);
  return drawCharacter(world_pos, ch, r, g, b, rotation);
}

void DisplayManager::Graphics::drawCellAlone(sf::Vector2f background_at, sf::Vector2f glyph_at,
                                             char ch, sf::Color color, float rotation) {
  window_plain = false;
  rectangle->setPosition(background_at);
  rectangle->setRotation(rotation);
  window->draw(*rectangle);
  text->setString(std::string(1, ch));
  text->setPosition(glyph_at);
  text->setFillColor(color);
  text->setRotation(rotation);
  window->draw(*text);
}

void DisplayManager::Graphics::batchCell(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch,
                                         sf::Color color, float rotation) {
  // A text hangs its glyphs from a baseline one character size below its origin.
  batch.add(background_at, glyph_at, static_cast<float>(character_size), glyphOf(ch), color,
            rotation);
}

// The font keeps each glyph in one place for as long as it lives.
const sf::Glyph* DisplayManager::Graphics::glyphOf(char ch) {
  const unsigned char index = static_cast<unsigned char>(ch);
  if (glyphs[index] == nullptr && !isBlank(code_points[index])) {
    glyphs[index] = &font->getGlyph(code_points[index], character_size, true);
  }
  return glyphs[index];
}

void DisplayManager::Graphics::drawBatch() {
  if (batch.empty() || window == nullptr) {
    return;
  }
  batch.draw(*window, font->getTexture(character_size), window_plain);
  window_plain = false;
}

int DisplayManager::drawString(Vector world_pos, std::string str, Justification just, Color color) {
  if (!isStarted()) {
    log().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  // Headless, nothing is drawn, but a recorder still sees the string's cells.
  if (graphics->window == nullptr && cell_recorders.empty()) {
    return -1;
  }
  const int length = static_cast<int>(str.size());
  float x = world_pos.getX();
  if (just == CENTER) {
    x -= static_cast<float>(length / 2);
  } else if (just == RIGHT) {
    x -= static_cast<float>(length);
  }
  unsigned char r, g, b;
  rgbOf(color, r, g, b);
  for (int i = 0; i < length; ++i) {
    drawCharacter(Vector(x + static_cast<float>(i), world_pos.getY()), str[i], r, g, b, 0.0f);
  }
  return graphics->window == nullptr ? -1 : 0;
}

int DisplayManager::swapBuffers() {
  if (!isStarted()) {
    log().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  if (graphics->window == nullptr) {
    return -1;
  }
  graphics->show();
  return 0;
}

void DisplayManager::Graphics::show() {
  const bool picture_alone = picture_open && composer != nullptr && batch.empty();
  if (picture_alone && putPicture()) {
    startFrame();
    return;
  }
  drawPending();
  window->display();
  showing_picture_alone = picture_alone;
  frames_not_shown = 0;
  startFrame();
}

// The window keeps what X put into it from one frame to the next, unlike the
// graphics card's buffers: a picture that the window shows already needs only
// its changed tiles, and an unchanged one nothing at all.
bool DisplayManager::Graphics::putPicture() {
  const bool changed = composer->compose();
  const bool pixels_lost = painter != nullptr && painter->lostPixels();
  if (showing_picture_alone && !pixels_lost && frames_not_shown < MOST_FRAMES_NOT_SHOWN) {
    ++frames_not_shown;
    if (!changed) {
      return true;
    }
    if (painter == nullptr) {
      return false;
    }
    composer->putChanged(*painter);
  } else if (painter != nullptr) {
    composer->putAll(*painter);
    frames_not_shown = 0;
  } else {
    return false;
  }
  painter->finish();
  showing_picture_alone = true;
  return true;
}

void DisplayManager::Graphics::paintPicture() {
  if (!picture_open) {
    return;
  }
  picture_open = false;
  if (composer == nullptr) {
    clearToBackground();
    return;
  }
  composer->compose();
  composer->draw(*window);
  window_plain = composer->empty();
}

void DisplayManager::Graphics::drawPending() {
  if (window == nullptr) {
    return;
  }
  paintPicture();
  drawBatch();
}

void DisplayManager::Graphics::startFrame() {
  picture_open = true;
  if (composer != nullptr) {
    composer->startFrame();
  }
}

int DisplayManager::captureScreen(sf::Image& picture) {
  if (!isStarted()) {
    log().writeLog("DisplayManager::captureScreen(): Error! %s not started.", getType().c_str());
    return -1;
  }
  if (graphics->window == nullptr) {
    log().writeLog("DisplayManager::captureScreen(): Error! No window in headless mode.");
    return -1;
  }
  graphics->drawPending();
  const sf::RenderWindow& window = *graphics->window;
  const sf::Vector2u size = window.getSize();
  sf::Texture copy;
  if (!copy.create(size.x, size.y)) {
    log().writeLog("DisplayManager::captureScreen(): Error! No texture of %u by %u pixels.", size.x,
                   size.y);
    return -1;
  }
  copy.update(window);
  picture = copy.copyToImage();
  return 0;
}

int DisplayManager::saveScreenshot(std::string file) {
  if (!endsWithPng(file)) {
    log().writeLog("DisplayManager::saveScreenshot(): Error! File name '%s' does not end in .png.",
                   file.c_str());
    return -1;
  }
  sf::Image picture;
  if (captureScreen(picture) != 0) {
    return -1;
  }
  if (!picture.saveToFile(file)) {
    log().writeLog("DisplayManager::saveScreenshot(): Error! Unable to write '%s'.", file.c_str());
    return -1;
  }
  return 0;
}

void DisplayManager::setBatching(bool batched) {
  graphics->drawPending();
  batching = batched;
}

bool DisplayManager::getBatching() const { return batching; }

void DisplayManager::setComposing(bool composed) { composing = composed; }

bool DisplayManager::getComposing() const { return composing; }

void DisplayManager::addCellRecorder(CellRecorder* recorder) {
  if (std::find(cell_recorders.begin(), cell_recorders.end(), recorder) == cell_recorders.end()) {
    cell_recorders.push_back(recorder);
  }
}

void DisplayManager::removeCellRecorder(CellRecorder* recorder) {
  cell_recorders.erase(std::remove(cell_recorders.begin(), cell_recorders.end(), recorder),
                       cell_recorders.end());
}

int DisplayManager::getHorizontalChars() const { return window_horizontal_chars; }

int DisplayManager::getVerticalChars() const { return window_vertical_chars; }

int DisplayManager::getHorizontalPixels() const { return window_horizontal_pixels; }

int DisplayManager::getVerticalPixels() const { return window_vertical_pixels; }

void DisplayManager::setWindowTitle(const std::string& title) {
  if (graphics->window != nullptr) {
    graphics->window->setTitle(title);
  }
}

sf::RenderWindow* DisplayManager::getWindow() const { return graphics->window.get(); }

int DisplayManager::draw(const sf::Drawable& drawable) {
  if (graphics->window == nullptr) {
    return -1;
  }
  graphics->drawPending();
  graphics->window->draw(drawable);
  graphics->window_plain = false;
  return 0;
}

void DisplayManager::Graphics::clearToBackground() {
  window->clear(window_background_color);
  window_plain = true;
}

}  // namespace mv
