#include "WindowPainter.h"

#include <vector>

// Last: Xlib defines macros that would clash with names in SFML's headers.
#include <GL/glx.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace mv {

struct WindowPainter::Connection {
  // The graphics card's own connection: what the card shows and what is put
  // here reach the X server in the order they were sent.
  Display* display = nullptr;
  ::Window window = 0;
  Visual* visual = nullptr;
  int depth = 0;
  GC gc = nullptr;
  // A connection of our own that hears when X throws pixels of the window
  // away, leaving the window's other events to the graphics card's connection.
  Display* listener = nullptr;
  // Each pixel as the X server lays it out: blue, green, red and an opaque alpha, in memory order.
  std::vector<unsigned char> pixels;

  ~Connection() {
    if (gc != nullptr) {
      XFreeGC(display, gc);
    }
    if (listener != nullptr) {
      XCloseDisplay(listener);
    }
  }
};

WindowPainter::WindowPainter() = default;

WindowPainter::~WindowPainter() = default;

bool WindowPainter::open(sf::WindowHandle window) {
  connection.reset();
  Display* display = glXGetCurrentDisplay();
  XWindowAttributes attributes;
  if (display == nullptr || XGetWindowAttributes(display, window, &attributes) == 0) {
    return false;
  }
  const Visual* visual = attributes.visual;
  if ((attributes.depth != 24 && attributes.depth != 32) || visual->red_mask != 0xff0000 ||
      visual->green_mask != 0xff00 || visual->blue_mask != 0xff) {
    return false;
  }
  connection = std::make_unique<Connection>();
  connection->display = display;
  connection->window = window;
  connection->visual = attributes.visual;
  connection->depth = attributes.depth;
  connection->gc = XCreateGC(display, window, 0, nullptr);
  connection->listener = XOpenDisplay(nullptr);
  if (connection->listener != nullptr) {
    XSelectInput(connection->listener, window, ExposureMask);
    XFlush(connection->listener);
  }
  return true;
}

void WindowPainter::put(const std::uint32_t* picture, int width, const sf::IntRect& area) {
  if (connection == nullptr || area.width <= 0 || area.height <= 0) {
    return;
  }
  std::vector<unsigned char>& pixels = connection->pixels;
  pixels.resize(4 * static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
  unsigned char* out = pixels.data();
  for (int y = area.top; y < area.top + area.height; ++y) {
    const unsigned char* in = reinterpret_cast<const unsigned char*>(
        picture + static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + area.left);
    for (int x = 0; x < area.width; ++x, in += 4, out += 4) {
      out[0] = in[2];
      out[1] = in[1];
      out[2] = in[0];
      out[3] = 255;
    }
  }
  XImage* image = XCreateImage(
      connection->display, connection->visual, static_cast<unsigned>(connection->depth), ZPixmap, 0,
      reinterpret_cast<char*>(pixels.data()), static_cast<unsigned>(area.width),
      static_cast<unsigned>(area.height), 32, 0);
  if (image == nullptr) {
    return;
  }
  image->byte_order = LSBFirst;
  XPutImage(connection->display, connection->window, connection->gc, image, 0, 0, area.left,
            area.top, static_cast<unsigned>(area.width), static_cast<unsigned>(area.height));
  // The pixels belong to the vector, not to the image.
  image->data = nullptr;
  XDestroyImage(image);
}

bool WindowPainter::lostPixels() {
  if (connection == nullptr || connection->listener == nullptr) {
    return true;
  }
  bool lost = false;
  while (XPending(connection->listener) > 0) {
    XEvent event;
    XNextEvent(connection->listener, &event);
    lost = lost || event.type == Expose;
  }
  return lost;
}

void WindowPainter::finish() {
  if (connection != nullptr) {
    XSync(connection->display, False);
  }
}

}  // namespace mv
