#include "watchMessages.h"

#include <cstdint>
#include <sstream>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "LogManager.h"

namespace mv {

namespace {

constexpr std::uint32_t WATCH_VERSION = 1;
// The least a drawn cell takes: its character, red, green and blue, and
// whether it stands off the corner of its whole cell.
constexpr std::size_t BYTES_PER_CELL = 5;

// A run of neighbouring cells, in the grid's order, all drawn or all not.
void writeRun(ByteWriter& out, const std::vector<ScreenCell>& cells, std::size_t first,
              std::size_t end) {
  const bool drawn = cells[first].drawn;
  out.writeUnsigned(static_cast<std::uint32_t>(first));
  out.writeBool(drawn);
  out.writeInt(static_cast<int>(end - first));
  for (std::size_t i = first; drawn && i < end; i++) {
    out.writeByte(static_cast<unsigned char>(cells[i].character));
    out.writeByte(cells[i].r);
    out.writeByte(cells[i].g);
    out.writeByte(cells[i].b);
    const bool whole_cell = cells[i].across == 0.0f && cells[i].down == 0.0f;
    out.writeBool(!whole_cell);
    if (!whole_cell) {
      out.writeFloat(cells[i].across);
      out.writeFloat(cells[i].down);
    }
  }
}

bool changed(const ScreenGrid* before, const std::vector<ScreenCell>& now, std::size_t i) {
  return before == nullptr ? now[i].drawn : before->getCells()[i] != now[i];
}

// A place off the corner of the whole cell lies within it, or the cell would
// be drawn outside the grid.
bool readPlace(ByteReader& in, ScreenCell& cell) {
  bool off_corner = false;
  cell.across = cell.down = 0.0f;
  if (!in.readBool(off_corner)) {
    return false;
  }
  const auto within = [](float part) { return part >= 0.0f && part < 1.0f; };
  return !off_corner || (in.readFloat(cell.across) && in.readFloat(cell.down) &&
                         within(cell.across) && within(cell.down));
}

bool readRun(ByteReader& in, ScreenGrid& grid) {
  const std::size_t size = grid.getCells().size();
  std::uint32_t first = 0;
  int count = 0;
  bool drawn = false;
  if (!in.readUnsigned(first) || first > size || !in.readBool(drawn) ||
      !in.readCount(count, drawn ? BYTES_PER_CELL : 0, size - first)) {
    return false;
  }
  ScreenCell cell;
  cell.drawn = drawn;
  for (int i = 0; i < count; i++) {
    unsigned char character = ' ';
    if (drawn && !(in.readByte(character) && in.readByte(cell.r) && in.readByte(cell.g) &&
                   in.readByte(cell.b) && readPlace(in, cell))) {
      return false;
    }
    cell.character = static_cast<char>(character);
    grid.setCell(first + static_cast<std::size_t>(i), cell);
  }
  return true;
}

bool sayMalformed(const char* what) {
  LogManager::getInstance().writeLog("watchMessages: Error! A %s that is cut or out of bounds.",
                                     what);
  return false;
}

}  // namespace

bool parseWatchAddress(const std::string& address, std::string& host, int& port) {
  const std::size_t colon = address.rfind(':');
  host = address.substr(0, colon);
  port = DEFAULT_WATCH_PORT;
  if (colon != std::string::npos) {
    const std::string digits = address.substr(colon + 1);
    if (digits.empty() || digits.size() > 5 ||
        digits.find_first_not_of("0123456789") != std::string::npos) {
      return false;
    }
    port = std::stoi(digits);
  }
  return !host.empty() && port >= 1 && port <= 65535;
}

std::string helloToWatcher(const WatchedScreen& screen) {
  std::ostringstream payload;
  ByteWriter out(payload);
  out.writeInt(screen.columns);
  out.writeInt(screen.rows);
  out.writeInt(screen.pixels_across);
  out.writeInt(screen.pixels_down);
  out.writeString(screen.title);
  return payload.str();
}

bool readHelloToWatcher(const std::string& payload, WatchedScreen& screen) {
  std::istringstream stream(payload);
  ByteReader in(stream, "readHelloToWatcher()");
  WatchedScreen read;
  const auto fits = [](int value, int most) { return value >= 1 && value <= most; };
  if (!(in.readInt(read.columns) && in.readInt(read.rows) && in.readInt(read.pixels_across) &&
        in.readInt(read.pixels_down) && in.readString(read.title)) ||
      !fits(read.columns, MOST_WATCHED_CELLS) || !fits(read.rows, MOST_WATCHED_CELLS) ||
      !fits(read.pixels_across, 32767) || !fits(read.pixels_down, 32767)) {
    return sayMalformed("host's greeting");
  }
  screen = read;
  return true;
}

std::string helloFromWatcher() {
  std::ostringstream payload;
  ByteWriter(payload).writeUnsigned(WATCH_VERSION);
  return payload.str();
}

bool readHelloFromWatcher(const std::string& payload) {
  std::istringstream stream(payload);
  std::uint32_t version = 0;
  return ByteReader(stream, "readHelloFromWatcher()").readUnsigned(version) &&
         version == WATCH_VERSION && stream.peek() == EOF;
}

std::string screenChanges(int step, const ScreenGrid* before, const ScreenGrid& now) {
  std::ostringstream payload;
  ByteWriter out(payload);
  out.writeInt(step);
  out.writeBool(before == nullptr);
  const std::vector<ScreenCell>& cells = now.getCells();
  std::size_t i = 0;
  while (i < cells.size()) {
    if (!changed(before, cells, i)) {
      i++;
      continue;
    }
    std::size_t end = i + 1;
    while (end < cells.size() && changed(before, cells, end) &&
           cells[end].drawn == cells[i].drawn) {
      end++;
    }
    writeRun(out, cells, i, end);
    i = end;
  }
  return payload.str();
}

bool applyScreenChanges(const std::string& payload, ScreenGrid& grid, int& step) {
  std::istringstream stream(payload);
  ByteReader in(stream, "applyScreenChanges()");
  bool whole = false;
  if (!in.readInt(step) || !in.readBool(whole)) {
    return sayMalformed("screen");
  }
  if (whole) {
    grid.clear();
  }
  while (stream.peek() != EOF) {
    if (!readRun(in, grid)) {
      return sayMalformed("screen");
    }
  }
  return true;
}

std::string soundToWatcher(const WatchedSound& sound) {
  std::ostringstream payload;
  ByteWriter out(payload);
  out.writeBool(sound.music);
  out.writeInt(sound.action);
  out.writeString(sound.label);
  return payload.str();
}

bool readSoundToWatcher(const std::string& payload, WatchedSound& sound) {
  std::istringstream stream(payload);
  ByteReader in(stream, "readSoundToWatcher()");
  WatchedSound read;
  int action = -1;
  if (!(in.readBool(read.music) && in.readInt(action) && in.readString(read.label)) ||
      action < AUDIO_STOPPED || action > AUDIO_LOOPED) {
    return sayMalformed("sound");
  }
  read.action = static_cast<AudioAction>(action);
  sound = read;
  return true;
}

}  // namespace mv
