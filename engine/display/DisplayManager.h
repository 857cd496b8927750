// The window and its grid of character cells: turns cell positions into pixels
// and draws each cell as an opaque background with one glyph on top. In
// headless mode there is no window and nothing here touches graphics.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "CellRecorder.h"
#include "Color.h"
#include "Justification.h"
#include "Manager.h"
#include "Vector.h"

// A game that includes this header needs SFML's headers only if it draws with SFML itself.
namespace sf {
class Drawable;
class Image;
class RenderWindow;
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

  // Cells are drawn in batches by default, and look and overlap exactly as
  // when each goes alone. Drawing them one by one is kept for comparison.
  void setBatching(bool batched);
  bool getBatching() const;

  // How batched cells reach the window. Composed (the default): the cells
  // drawn before anything else in a frame are laid on the CPU into one
  // picture, which keeps what did not change since the last frame; an
  // unchanged picture is not drawn again. Cells after a figure, or turned,
  // go as a batch of quads. Not composed: every cell goes in that batch.
  void setComposing(bool composed);
  bool getComposing() const;

  // Each recorder added sees every cell drawn until it is removed; not owned.
  // Headless, recorders stand in for the screen, and the cells they take count
  // as drawn.
  void addCellRecorder(CellRecorder* recorder);
  void removeCellRecorder(CellRecorder* recorder);

  int getHorizontalChars() const;
  int getVerticalChars() const;
  int getHorizontalPixels() const;
  int getVerticalPixels() const;

  // Puts `title` on the window's title bar, white space and all; nothing headless.
  void setWindowTitle(const std::string& title);

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

  // What the window draws with, and how far this frame's drawing has come.
  struct Graphics;

  int window_horizontal_pixels;
  int window_vertical_pixels;
  int window_horizontal_chars;
  int window_vertical_chars;
  std::unique_ptr<Graphics> graphics;
  bool batching;
  bool composing;
  std::vector<CellRecorder*> cell_recorders;
};

}  // namespace mv
