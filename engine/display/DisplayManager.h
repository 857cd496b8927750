// The window and its grid of character cells: turns cell positions into pixels
// and draws each cell as an opaque background with one glyph on top. In
// headless mode there is no window and nothing here touches graphics.
#pragma once

#include <SFML/Config.hpp>
#include <SFML/Graphics/Color.hpp>
#include <SFML/System/Vector2.hpp>
#include <array>
#include <memory>
#include <string>

#include "CellBatch.h"
#include "CellRecorder.h"
#include "Color.h"
#include "Justification.h"
#include "Manager.h"
#include "Vector.h"

namespace sf {
class Drawable;
class Font;
class Image;
class RectangleShape;
class RenderWindow;
class Text;
}  // namespace sf

namespace mv {

// Pixels per cell across and down. Never rounded: a cell may be a fraction of pixels.
float charWidth();
float charHeight();

// Cells to pixels and back, with no offset of any kind.
Vector spacesToPixels(Vector spaces);
Vector pixelsToSpaces(Vector pixels);

class DisplayManager : public Manager {
 public:
  static DisplayManager& getInstance();
  ~DisplayManager() override;

  // Takes the grid from the configuration; outside headless mode opens the
  // window and loads the font. -1 when something can't be made, or on a second start.
  int startUp() override;

  // Closes the window and frees the drawables; pending cells are dropped.
  void shutDown() override;

  // Draws one cell at a grid position, which need not be whole: the
  // background covers what stood there, then the glyph goes on top. 0 when
  // drawn; -1 when not started (with a log line) or without a window.
  int drawCharacter(Vector world_pos, char ch, unsigned char r, unsigned char g, unsigned char b,
                    float rotation);
  int drawCharacter(Vector world_pos, char ch, Color color, float rotation);

  // One cell per character, rightwards from the position as justified.
  // 0 even if a cell failed; -1 when not started or headless.
  int drawString(Vector world_pos, std::string str, Justification just, Color color);

  // Shows what this frame drew and clears the next one to the background.
  int swapBuffers();

  // Copies what the next swapBuffers will show into `picture`, the window's size.
  // 0, or -1 with a log line when there is no window.
  int captureScreen(sf::Image& picture);

  // Writes what the next swapBuffers will show to a PNG file, whose name
  // must end in ".png". 0, or -1 with a log line.
  int saveScreenshot(std::string file);

  // Cells are drawn in batches by default, the whole frame in one call to
  // the graphics card, and look and overlap exactly as when each goes alone.
  // Drawing them one by one is kept for comparison.
  void setBatching(bool batched);
  bool getBatching() const;

  // Not owned; null stops the recording. Headless, the recorder stands in for
  // the screen, and the cells it takes count as drawn.
  void setCellRecorder(CellRecorder* recorder);

  int getHorizontalChars() const;
  int getVerticalChars() const;
  int getHorizontalPixels() const;
  int getVerticalPixels() const;

  // May be null. For the window's events and settings: drawing goes through draw().
  sf::RenderWindow* getWindow() const;

  // Draws into the window over the cells drawn before, and under those drawn
  // after. -1 without a window.
  int draw(const sf::Drawable& drawable);

 private:
  DisplayManager();

  int readGrid();
  int createWindow();
  int loadFont();
  int createDrawables();
  unsigned characterSizeForCells() const;
  void releaseGraphics();

  void drawCellAlone(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, sf::Color color,
                     float rotation);
  void batchCell(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, sf::Color color,
                 float rotation);
  void drawBatch();
  void clearToBackground();

  std::unique_ptr<sf::Font> font;
  std::unique_ptr<sf::RenderWindow> window;
  int window_horizontal_pixels;
  int window_vertical_pixels;
  int window_horizontal_chars;
  int window_vertical_chars;
  std::unique_ptr<sf::RectangleShape> rectangle;
  sf::Color window_background_color;
  std::unique_ptr<sf::Text> text;

  unsigned character_size;
  // What the text makes of each char: the code point it looks up in the font.
  std::array<sf::Uint32, 256> code_points;
  bool batching;
  CellBatch batch;
  // Whether the window shows nothing but the background since it was last cleared.
  bool window_plain;
  CellRecorder* cell_recorder;
};

}  // namespace mv
