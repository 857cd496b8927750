// Puts pixels straight into a window through the X server, past the graphics
// card: a few changed tiles of a picture reach the screen for a fraction of
// what drawing the whole window through the card costs. What the card shows
// later paints over them, so both may take turns in one window.
#pragma once

#include <SFML/Graphics/Rect.hpp>
#include <SFML/Window/WindowHandle.hpp>
#include <cstdint>
#include <memory>

namespace mv {

class WindowPainter {
 public:
  WindowPainter();
  ~WindowPainter();

  // For `window`, whose graphics context must be the current one. False when
  // the window's pixels are not 8 bits each of red, green and blue in 32.
  bool open(sf::WindowHandle window);

  // Puts `area` of a picture `width` pixels wide, each pixel its red, green,
  // blue and alpha bytes, into the same place of the window.
  void put(const std::uint32_t* picture, int width, const sf::IntRect& area);

  // Waits until the X server has taken everything put.
  void finish();

  // Whether X has thrown away pixels of the window since the last call, as
  // when it was moved or uncovered: then it needs all its pixels again.
  bool lostPixels();

 private:
  struct Connection;
  std::unique_ptr<Connection> connection;
};

}  // namespace mv
