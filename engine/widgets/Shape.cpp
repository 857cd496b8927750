#include "Shape.h"

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cstdio>
#include <sstream>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "Config.h"
#include "DisplayManager.h"
#include "LogManager.h"
#include "geometry.h"
#include "utility.h"

namespace mv {

namespace {

// A circle's outline gets more points as it grows, from a triangle to a decagon.
std::size_t circlePoints(float size) {
  if (size >= 10.0f) {
    return 10;
  }
  return size >= 3.0f ? static_cast<std::size_t>(size) : 3;
}

// One drawable serves every figure, so drawing allocates nothing. It holds no
// graphics resource of its own and may live to the program's end.
sf::CircleShape& figure() {
  static sf::CircleShape shared(0.0f, 30);
  return shared;
}

const char* typeName(int type) {
  switch (type) {
    case Shape::CIRCLE:
      return "circle";
    case Shape::SQUARE:
      return "square";
    case Shape::TRIANGLE:
      return "triangle";
  }
  return "undefined";
}

}  // namespace

Shape::Shape()
    : color(WHITE),
      r(255),
      g(255),
      b(255),
      type(CIRCLE),
      size(Config::getInstance().getFontScale() *
           static_cast<float>(static_cast<int>(std::min(charWidth(), charHeight())))),
      opacity(255) {}

void Shape::setType(int t) {
  if (t < UNDEFINED || t > TRIANGLE) {
    LogManager::getInstance().writeLog("Shape::setType(): Unknown shape type %d. Ignoring.", t);
    return;
  }
  type = t;
}

int Shape::getType() const { return type; }

void Shape::setSize(float s) { size = s; }

float Shape::getSize() const { return size; }

void Shape::setColorRGB(unsigned char new_r, unsigned char new_g, unsigned char new_b) {
  color = CUSTOM;
  r = new_r;
  g = new_g;
  b = new_b;
}

Color Shape::getColor() const { return color; }

void Shape::setOpacity(unsigned char o) { opacity = o; }

unsigned char Shape::getOpacity() const { return opacity; }

void Shape::draw(Vector position) {
  DisplayManager& display = DisplayManager::getInstance();
  if (display.getWindow() == nullptr) {
    LogManager::getInstance().writeLog(5, "Shape::draw(): DisplayManager window not defined.");
    return;
  }
  if (type == UNDEFINED) {
    return;
  }
  const Vector p = spacesToPixels(worldToView(position));
  if (color != CUSTOM) {
    colorToRGB(color, r, g, b);
  }
  sf::CircleShape& shape = figure();
  shape.setFillColor(sf::Color(r, g, b, opacity));
  // Circles and triangles stand upright whatever figure was drawn before them.
  shape.setRotation(0.0f);
  if (type == CIRCLE) {
    shape.setPointCount(circlePoints(size));
    shape.setRadius(size);
    shape.setPosition(p.getX() - size * 0.5f, p.getY() - size * 0.5f);
  } else if (type == SQUARE) {
    shape.setPointCount(4);
    shape.setRadius(size / Config::getInstance().getFontScale());
    shape.setPosition(p.getX() + size * 0.5f, p.getY() - size / 1.75f);
    shape.setRotation(45.0f);
  } else {
    shape.setPointCount(3);
    shape.setRadius(size * 0.5f);
    shape.setPosition(p.getX() - size * 0.5f, p.getY() - size * 0.5f);
  }
  LogManager::getInstance().writeLog(25, "Shape::draw(): Drawing at (%.2f, %.2f)", p.getX(),
                                     p.getY());
  display.draw(shape);
}

std::string Shape::toString() const {
  char size_text[64];
  std::snprintf(size_text, sizeof size_text, "%f", size);
  return std::string(typeName(type)) + ", size " + size_text + ", " + colorToString(color) + ", " +
         std::to_string(opacity);
}

int Shape::serialize(std::stringstream& stream) const {
  ByteWriter out(stream);
  out.writeInt(type);
  out.writeFloat(size);
  out.writeInt(color);
  out.writeByte(opacity);
  return checkStream("Shape::serialize()", stream);
}

int Shape::deserialize(std::stringstream& stream) {
  ByteReader in(stream, "Shape::deserialize()");
  int new_type, new_color;
  float new_size;
  unsigned char new_opacity;
  if (in.readInt(new_type) && in.readFloat(new_size) && in.readInt(new_color) &&
      in.readByte(new_opacity)) {
    setType(new_type);
    size = new_size;
    color = static_cast<Color>(new_color);
    opacity = new_opacity;
  }
  return checkStream("Shape::deserialize()", stream);
}

}  // namespace mv
