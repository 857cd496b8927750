#include "ResourceManager.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <new>
#include <utility>

#include "LogManager.h"
#include "audioDevice.h"
#include "utility.h"

namespace mv {

namespace {

// A sprite file being read, with the number of the line last read, which the
// readers advance and their messages quote.
struct SpriteFile {
  std::istream& stream;
  int line_number = 0;
};

using Lines = std::list<std::string>;

// What the header lines of either sprite format say.
struct SpriteHeader {
  int frames = 0;
  int width = 0;
  int height = 0;
  int slowdown = 0;
  Color color = WHITE;
  char transparency = 0;
};

LogManager& log() { return LogManager::getInstance(); }

void dropCarriageReturn(std::string& line) {
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
}

// The next line without its line end, or empty at the end of the file. A last
// line that ends without a newline reads as the end too: every line must end in one.
std::string getLine(SpriteFile& file, bool count) {
  std::string line;
  std::getline(file.stream, line);
  if (!file.stream.good()) {
    log().writeLog("getLine(): Error! Unexpected end of file.");
    return "";
  }
  dropCarriageReturn(line);
  if (count) {
    file.line_number++;
  }
  return line;
}

// The lines between "<delimiter>" and "</delimiter>", which must come next in
// the file. Empty when the block is missing, unclosed, holds an empty line or
// holds nothing. Afterwards the file's line number is the line of the closing tag.
Lines readData(SpriteFile& file, const std::string& delimiter) {
  const std::string open_tag = "<" + delimiter + ">";
  const std::string close_tag = "</" + delimiter + ">";
  std::string line = getLine(file, true);
  if (line != open_tag) {
    log().writeLog("readData(): Error line %d! Expected '%s', have '%s'.", file.line_number,
                   open_tag.c_str(), line.c_str());
    return {};
  }
  Lines data;
  line = getLine(file, false);
  while (line != close_tag) {
    if (line.empty()) {
      log().writeLog("readData(): Error! Stop at line %d, never encountered '%s'.",
                     file.line_number, close_tag.c_str());
      return {};
    }
    data.push_back(line);
    line = getLine(file, true);
  }
  file.line_number++;
  if (data.empty()) {
    log().writeLog("readData(): Error line %d! Nothing between '%s' and '%s'.", file.line_number,
                   open_tag.c_str(), close_tag.c_str());
  }
  return data;
}

// Takes every line that begins with `tag` out of `lines`, in order. A longer
// word that begins with the tag counts as the tag.
Lines takeMatches(Lines& lines, const std::string& tag) {
  Lines matches;
  for (auto line = lines.begin(); line != lines.end();) {
    const auto next = std::next(line);
    if (line->compare(0, tag.size(), tag) == 0) {
      matches.splice(matches.end(), lines, line);
    }
    line = next;
  }
  return matches;
}

// The text of a keyed line after the key and the one separator behind it.
std::string valueOf(const std::string& line, const std::string& tag) {
  return line.size() > tag.size() ? line.substr(tag.size() + 1) : "";
}

// The number of the last line keyed `tag`, -1 when there is none; the lines are consumed.
int matchLineInt(Lines& lines, const std::string& tag) {
  int value = -1;
  for (const std::string& line : takeMatches(lines, tag)) {
    if (value != -1) {
      log().writeLog(1, "matchLineInt(): Warning! '%s' matches multiple lines.", line.c_str());
    }
    value = toInt(valueOf(line, tag));
  }
  return value;
}

// The text of the last line keyed `tag`, empty when there is none; the lines are consumed.
std::string matchLineStr(Lines& lines, const std::string& tag) {
  std::string value;
  for (const std::string& line : takeMatches(lines, tag)) {
    if (!value.empty()) {
      log().writeLog(1, "matchLineStr(): Warning! '%s' matches multiple lines.", line.c_str());
    }
    value = valueOf(line, tag);
  }
  return value;
}

void logNoMoreFrameData(int line) {
  log().writeLog("\tError! Line %d: No more frame data before 'end'.", line);
}

// Takes one frame of `height` rows and its "end" line from the front of the
// body. `line` is where the frame's rows are reckoned from in messages.
// An empty frame when the rows or the "end" are not there.
Frame readFrame(const SpriteFile& file, Lines& lines, int width, int height, int line) {
  std::string frame_str;
  for (int row = 0; row < height; row++) {
    if (lines.empty()) {
      logNoMoreFrameData(line + 1);
      return Frame();
    }
    const std::string& text = lines.front();
    line++;
    log().writeLog(20, "\tLine %2d: '%s'", line, text.c_str());
    if (text.size() != static_cast<std::size_t>(width)) {
      log().writeLog("\tError! Line %d: Line length is %d (frame width is %d).", line,
                     static_cast<int>(text.size()), width);
      log().writeLog("\tLine %d: '%s'", line, text.c_str());
      return Frame();
    }
    frame_str += text;
    lines.pop_front();
  }
  if (lines.empty()) {
    logNoMoreFrameData(line + 1);
    return Frame();
  }
  if (lines.front() != "end") {
    log().writeLog("\tError! Line %d: Expected '%s'.", file.line_number, "end");
    log().writeLog("\tLine %d: '%s'", line + 1, lines.front().c_str());
    return Frame();
  }
  lines.pop_front();
  return Frame(width, height, frame_str);
}

void logSizes(const SpriteHeader& header) {
  log().writeLog(5, "\t      Frames: %d", header.frames);
  log().writeLog(5, "\t       Width: %d", header.width);
  log().writeLog(5, "\t      Height: %d", header.height);
  log().writeLog(5, "\t    Slowdown: %d", header.slowdown);
}

void logColor(Color color) {
  log().writeLog(5, "\t       Color: %s", colorToString(color).c_str());
}

// A sprite of the header's size and looks, or null with a line in the reader's words.
std::unique_ptr<Sprite> makeSprite(const SpriteHeader& header, const char* reader) {
  std::unique_ptr<Sprite> sprite(new (std::nothrow) Sprite(header.frames));
  if (sprite == nullptr) {
    log().writeLog("%s: Error! Unable to create Sprite.", reader);
    return nullptr;
  }
  sprite->setWidth(header.width);
  sprite->setHeight(header.height);
  sprite->setSlowdown(header.slowdown);
  sprite->setColor(header.color);
  sprite->setTransparency(header.transparency);
  return sprite;
}

// Adds a frame, or tells that the sprite had no room for it; `ending` closes
// the second line, whose punctuation differs between the readers.
bool addFrame(Sprite& sprite, Frame frame, int frames, const char* reader, const char* ending) {
  if (sprite.addFrame(std::move(frame)) == 0) {
    return true;
  }
  log().writeLog("%s: Error! Cannot add Frame.", reader);
  log().writeLog("\tFramecount is %d, max is %d%s", sprite.getFrameCount() + 1, frames, ending);
  return false;
}

// Writes every row of every frame at level 15. The rows are copied for it,
// so nothing is done while the log would drop them.
void logFrames(const Sprite& sprite) {
  if (log().getLogLevel() < 15) {
    return;
  }
  log().writeLog(15, "RM::loadSprite(): Sprite '%s' frames:", sprite.getLabel().c_str());
  for (int f = 0; f < sprite.getFrameCount(); f++) {
    log().writeLog(15, "\tFrame %d:", f + 1);
    const Frame frame = sprite.getFrame(f);
    const std::string text = frame.getString();
    for (int row = 0; row < frame.getHeight(); row++) {
      const std::string row_text =
          text.substr(std::min(text.size(), static_cast<std::size_t>(row) * frame.getWidth()),
                      static_cast<std::size_t>(frame.getWidth()));
      log().writeLog(15, "\t%s", row_text.c_str());
    }
  }
}

// --- The simple format: five bare lines, then the rows of every frame.

const char* const SIMPLE = "RM::loadSimpleSprite()";

// The next line of a simple header, or empty after saying which item is missing.
std::string readSimpleItem(SpriteFile& file, const char* missing) {
  const std::string line = getLine(file, true);
  if (line.empty()) {
    log().writeLog("RM::loadSimpleSprite(): Error! Unexpected end of file.");
    log().writeLog("%s", missing);
    return "";
  }
  log().writeLog(20, "\tLine %2d: '%s'", file.line_number, line.c_str());
  return line;
}

// A size beyond its limit means a damaged file rather than art.
bool simpleSizeTooLarge(const SpriteFile& file, const char* what, int value, int most) {
  if (value <= most) {
    return false;
  }
  log().writeLog("RM::loadSimpleSprite(): Error line %d! %s is %d, more than %d.", file.line_number,
                 what, value, most);
  return true;
}

bool readSimpleFrames(SpriteFile& file, SpriteHeader& header) {
  const std::string line = readSimpleItem(file, "\tMissing frames (an integer).");
  if (line.empty()) {
    return false;
  }
  header.frames = toInt(line);
  if (header.frames < 1) {
    log().writeLog("RM::loadSimpleSprite(): Error line %d! Number of frames is %d.",
                   file.line_number, header.frames);
    return false;
  }
  return !simpleSizeTooLarge(file, "Number of frames", header.frames, MAX_SPRITE_FRAMES);
}

// Reads the integer item `what`, refusing values below `least`.
bool readSimpleInt(SpriteFile& file, const char* what, const char* missing, int least, int& value) {
  const std::string line = readSimpleItem(file, missing);
  if (line.empty()) {
    return false;
  }
  value = toInt(line);
  if (value < least) {
    log().writeLog("RM::loadSimpleSprite(): Error line %d! %s is '%s'.", file.line_number, what,
                   line.c_str());
    return false;
  }
  return true;
}

bool readSimpleColor(SpriteFile& file, SpriteHeader& header) {
  const std::string line = readSimpleItem(file, "\tMissing color (a string).");
  if (line.empty()) {
    return false;
  }
  const int color = colorFromName(line);
  if (color == -1) {
    log().writeLog("RM::loadSimpleSprite(): Error line %d! Unrecognized color '%s'.",
                   file.line_number, line.c_str());
    log().writeLog("  Valid colors are: black, red, green, yellow,");
    log().writeLog("                    blue, magenta, cyan or white.");
    return false;
  }
  header.color = static_cast<Color>(color);
  return true;
}

bool readSimpleHeader(SpriteFile& file, SpriteHeader& header) {
  return readSimpleFrames(file, header) &&
         readSimpleInt(file, "Width", "\tMissing width (an integer).", 1, header.width) &&
         !simpleSizeTooLarge(file, "Width", header.width, MAX_SPRITE_SIDE) &&
         readSimpleInt(file, "Height", "\tMissing height (an integer).", 1, header.height) &&
         !simpleSizeTooLarge(file, "Height", header.height, MAX_SPRITE_SIDE) &&
         readSimpleInt(file, "Slowdown", "\tMissing slowdown (an integer).", 0, header.slowdown) &&
         readSimpleColor(file, header);
}

// The rows of frame `index` joined, or empty after saying what is wrong with them.
std::string readSimpleFrame(SpriteFile& file, const SpriteHeader& header, int index) {
  log().writeLog(15, "RM::loadSimpleSprite(): Reading frame %d of %d.", index, header.frames);
  std::string frame_str;
  for (int row = 0; row < header.height; row++) {
    const std::string line = getLine(file, true);
    if (line.empty()) {
      log().writeLog("RM::loadSimpleSprite(): Error! Unexpected end of file.");
      log().writeLog("\tReading frame %d of %d, row %d of %d.", index + 1, header.frames, row + 1,
                     header.height);
      return "";
    }
    if (line.size() != static_cast<std::size_t>(header.width)) {
      log().writeLog("RM::loadSimpleSprite(): Error line %d!", file.line_number);
      log().writeLog("\tLine %2d: '%s'", file.line_number, line.c_str());
      log().writeLog("\tWidth is %d, expected %d.", static_cast<int>(line.size()), header.width);
      return "";
    }
    log().writeLog(20, "\tLine %2d: '%s'", file.line_number, line.c_str());
    frame_str += line;
  }
  return frame_str;
}

// The file must end right after the last row's newline.
bool simpleFileEndsHere(SpriteFile& file) {
  std::string rest;
  std::getline(file.stream, rest);
  file.line_number++;
  if (file.stream.eof() && rest.empty()) {
    return true;
  }
  dropCarriageReturn(rest);
  log().writeLog("RM::loadSimpleSprite(): Error line %d!", file.line_number);
  log().writeLog("\tExtra file data: '%s'", rest.c_str());
  return false;
}

// --- The robust format: tagged HEADER, BODY and FOOTER blocks with keyed lines.

const char* const ROBUST = "RM::loadRobustSprite()";

// A required size of the header: false after saying it is missing or out of range.
bool takeRobustSize(Lines& header_lines, const char* key, int most, int& size) {
  size = matchLineInt(header_lines, key);
  if (size == -1) {
    log().writeLog("RM::loadRobustSprite(): Error! Missing '%s' in header.", key);
    return false;
  }
  if (size < 0 || size > most) {
    log().writeLog("RM::loadRobustSprite(): Error! '%s' is %d in header, outside 0 to %d.", key,
                   size, most);
    return false;
  }
  return true;
}

char takeRobustTransparency(Lines& header_lines) {
  const std::string value = matchLineStr(header_lines, "transparency");
  if (value.empty()) {
    log().writeLog(5, "RM::loadRobustSprite(): Note! No '%s' in header.", "transparency");
    return 0;
  }
  if (value == "\" \"") {
    log().writeLog(5, "RM::loadRobustSprite(): transparency is 'space'");
    return ' ';
  }
  return value[0];
}

int takeRobustSlowdown(Lines& header_lines) {
  const int slowdown = matchLineInt(header_lines, "slowdown");
  if (slowdown == -1) {
    log().writeLog(5, "RM::loadRobustSprite(): Note! No '%s' in header.", "slowdown");
    return 0;
  }
  return slowdown;
}

void logUnusedLines(const Lines& lines, const char* heading) {
  if (lines.empty()) {
    return;
  }
  log().writeLog(1, "%s", heading);
  for (const std::string& line : lines) {
    log().writeLog(1, "\t'%s'", line.c_str());
  }
}

// Fills everything but the colour, whose name is checked once the body is read.
bool readRobustHeader(Lines& header_lines, SpriteHeader& header, std::string& color_name) {
  if (!takeRobustSize(header_lines, "frames", MAX_SPRITE_FRAMES, header.frames) ||
      !takeRobustSize(header_lines, "width", MAX_SPRITE_SIDE, header.width) ||
      !takeRobustSize(header_lines, "height", MAX_SPRITE_SIDE, header.height)) {
    return false;
  }
  color_name = matchLineStr(header_lines, "color");
  if (color_name.empty()) {
    log().writeLog(5, "RM::loadRobustSprite(): Warning! No '%s' in header.", "color");
    color_name = "default";
  }
  header.transparency = takeRobustTransparency(header_lines);
  header.slowdown = takeRobustSlowdown(header_lines);
  logUnusedLines(header_lines, "RM::loadRobustSprite(): Warning! Unused HEADER lines:");
  logSizes(header);
  if (header.transparency == 0) {
    log().writeLog(5, "\tTransparency: (none)");
  } else {
    log().writeLog(5, "\tTransparency: '%c'", header.transparency);
  }
  return true;
}

bool setRobustColor(Sprite& sprite, const std::string& color_name) {
  const int color = color_name == "default" ? WHITE : colorFromName(color_name);
  if (color == -1) {
    log().writeLog("RM::loadRobustSprite(): Error! Unrecognized color '%s'.", color_name.c_str());
    log().writeLog("  Valid colors are: black, red, green, yellow,");
    log().writeLog("                    blue, magenta, cyan and white.");
    return false;
  }
  sprite.setColor(static_cast<Color>(color));
  logColor(sprite.getColor());
  return true;
}

// Reads every frame from the body, which must then be used up. `body_start`
// is the line of the header's closing tag.
bool readRobustFrames(SpriteFile& file, Sprite& sprite, const SpriteHeader& header, Lines& body,
                      int body_start) {
  int line = body_start + 2;
  for (int f = 0; f < header.frames; f++) {
    Frame frame = readFrame(file, body, header.width, header.height, line);
    if (frame.getString().empty()) {
      log().writeLog("RM::loadRobustSprite(): Error! No frame data to add.");
      return false;
    }
    if (!addFrame(sprite, std::move(frame), header.frames, ROBUST, "")) {
      return false;
    }
    line += header.height;
  }
  if (body.empty()) {
    return true;
  }
  log().writeLog("RM::loadRobustSprite(): Error! Extra BODY:");
  for (const std::string& extra : body) {
    log().writeLog("\tLine %d: %s", file.line_number, extra.c_str());
    file.line_number++;
  }
  return false;
}

bool readRobustFooter(SpriteFile& file) {
  Lines footer = readData(file, "FOOTER");
  if (footer.empty()) {
    return false;
  }
  if (matchLineStr(footer, "version").empty()) {
    log().writeLog("RM::loadRobustSprite(): Error! Missing '%s' in FOOTER (line %d).", "version",
                   file.line_number);
    return false;
  }
  logUnusedLines(footer, "RM::loadRobustSprite(): Warning! Unused FOOTER lines:");
  return true;
}

std::string labelOf(const std::unique_ptr<Sprite>& sprite) { return sprite->getLabel(); }

template <typename Resource>
std::string labelOf(const Resource& resource) {
  return resource.getLabel();
}

// The index of the first of the first `count` slots labelled `label`, or -1.
template <typename Slots>
int indexOfLabel(const Slots& slots, int count, const std::string& label) {
  for (int i = 0; i < count; i++) {
    if (labelOf(slots[i]) == label) {
      return i;
    }
  }
  return -1;
}

}  // namespace

ResourceManager::ResourceManager() : sprite_count(0), sound_count(0), music_count(0) {
  setType("ResourceManager");
}

ResourceManager& ResourceManager::getInstance() {
  static ResourceManager instance;
  return instance;
}

int ResourceManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  sprite_count = 0;
  sound_count = 0;
  music_count = 0;
  if (!audioDeviceOpened()) {
    log().writeLog("RM::startUp(): Warning! No audio device: sounds and music stay silent.");
  }
  Manager::startUp();
  log().writeLog(5, "RM::startUp(): successfully started.");
  return 0;
}

void ResourceManager::shutDown() {
  for (std::unique_ptr<Sprite>& sprite : sprites) {
    sprite.reset();
  }
  sprite_count = 0;
  for (int i = 0; i < sound_count; i++) {
    sounds[i].stop();
  }
  for (int i = 0; i < music_count; i++) {
    music[i].stop();
  }
  Manager::shutDown();
  log().writeLog(5, "RM::shutDown(): successfully stopped.");
}

bool ResourceManager::refuseWhenStopped() const {
  if (isStarted()) {
    return false;
  }
  log().writeLog("%s not started!", getType().c_str());
  return true;
}

int ResourceManager::loadSprite(std::string filename, std::string label) {
  if (refuseWhenStopped()) {
    return -1;
  }
  if (sprite_count == MAX_SPRITES) {
    log().writeLog("RM::loadRobustSprite(): Error! Cannot add more Sprites (max is %d).",
                   MAX_SPRITES);
    log().writeLog("RM::loadRobustSprite(): Sprite '%s' not loaded.", label.c_str());
    return -1;
  }
  log().writeLog(1, "RM::loadSprite(): Loading sprite '%s'.", filename.c_str());
  std::ifstream file(filename);
  if (!file.is_open()) {
    log().writeLog("RM::loadSprite(): Error! Cannot open file '%s'.", filename.c_str());
    log().writeLog("RM::loadSprite(): Sprite '%s' not loaded.", label.c_str());
    return -1;
  }
  SpriteFile first_look{file};
  const std::string first_line = getLine(first_look, false);
  file.clear();
  file.seekg(0);

  std::unique_ptr<Sprite> sprite;
  if (first_line == "<HEADER>") {
    log().writeLog(5, "RM::loadSprite(): assuming robust sprite file format.");
    sprite = loadRobustSprite(file);
  } else if (toInt(first_line) >= 1) {
    log().writeLog(5, "RM::loadSprite(): assuming simple sprite file format.");
    sprite = loadSimpleSprite(file);
  } else {
    log().writeLog("RM::loadSprite(): Error! Unknown sprite file format.");
    log().writeLog("RM::loadSprite(): First line is '%s'.", first_line.c_str());
    log().writeLog("RM::loadSprite(): Sprite '%s' NOT loaded.", label.c_str());
    return -1;
  }
  if (sprite == nullptr) {
    log().writeLog("RM::loadSprite(): Sprite '%s' NOT loaded.", label.c_str());
    return -1;
  }
  sprite->setLabel(label);
  logFrames(*sprite);
  sprites[sprite_count] = std::move(sprite);
  sprite_count++;
  log().writeLog(5, "RM::loadSprite(): Sprite '%s' loaded.", label.c_str());
  return 0;
}

std::unique_ptr<Sprite> ResourceManager::loadSimpleSprite(std::ifstream& stream) {
  if (refuseWhenStopped()) {
    return nullptr;
  }
  SpriteFile file{stream};
  SpriteHeader header;
  if (!readSimpleHeader(file, header)) {
    return nullptr;
  }
  logSizes(header);
  logColor(header.color);
  std::unique_ptr<Sprite> sprite = makeSprite(header, SIMPLE);
  if (sprite == nullptr) {
    return nullptr;
  }
  for (int f = 0; f < header.frames; f++) {
    std::string frame_str = readSimpleFrame(file, header, f);
    if (frame_str.empty()) {
      return nullptr;
    }
    Frame frame(header.width, header.height, std::move(frame_str));
    if (!addFrame(*sprite, std::move(frame), header.frames, SIMPLE, ".")) {
      return nullptr;
    }
  }
  if (!simpleFileEndsHere(file)) {
    return nullptr;
  }
  return sprite;
}

std::unique_ptr<Sprite> ResourceManager::loadRobustSprite(std::ifstream& stream) {
  if (refuseWhenStopped()) {
    return nullptr;
  }
  SpriteFile file{stream};
  Lines header_lines = readData(file, "HEADER");
  if (header_lines.empty()) {
    return nullptr;
  }
  log().writeLog(20, "ResourceManager::loadRobustSprite(): After header, line number: '%d'",
                 file.line_number);
  SpriteHeader header;
  std::string color_name;
  if (!readRobustHeader(header_lines, header, color_name)) {
    return nullptr;
  }
  const int body_start = file.line_number;
  Lines body = readData(file, "BODY");
  if (body.empty()) {
    return nullptr;
  }
  log().writeLog(20, "ResourceManager::loadRobustSprite(): After reading body: line number is '%d'",
                 file.line_number);
  std::unique_ptr<Sprite> sprite = makeSprite(header, ROBUST);
  if (sprite == nullptr || !setRobustColor(*sprite, color_name) ||
      !readRobustFrames(file, *sprite, header, body, body_start) || !readRobustFooter(file)) {
    return nullptr;
  }
  return sprite;
}

Sprite* ResourceManager::getSprite(std::string label) const {
  log().writeLog(5, "RM::getSprite(): Looking for sprite '%s'.", label.c_str());
  const int index = indexOfLabel(sprites, sprite_count, label);
  if (index == -1) {
    log().writeLog("RM::getSprite(): Warning! Sprite '%s' not found.", label.c_str());
    return nullptr;
  }
  return sprites[index].get();
}

Sound* ResourceManager::getSound(std::string label) {
  log().writeLog(5, "RM::getSound(): Looking for sound '%s'.", label.c_str());
  const int index = indexOfLabel(sounds, sound_count, label);
  if (index == -1) {
    log().writeLog("RM::getSound(): Warning! Sound '%s' not found.", label.c_str());
    return nullptr;
  }
  return &sounds[index];
}

Music* ResourceManager::getMusic(std::string label) {
  log().writeLog(5, "RM::getMusic(): Looking for music '%s'.", label.c_str());
  const int index = indexOfLabel(music, music_count, label);
  if (index == -1) {
    log().writeLog("RM::getMusic(): Warning! Music '%s' not found.", label.c_str());
    return nullptr;
  }
  return &music[index];
}

int ResourceManager::loadSound(std::string filename, std::string label) {
  if (refuseWhenStopped()) {
    return -1;
  }
  if (sound_count == MAX_SOUNDS) {
    log().writeLog("RM::loadSound(): Error! Unable to add more sounds (max is %d).", MAX_SOUNDS);
    return -1;
  }
  Sound& slot = sounds[sound_count];
  if (slot.loadSound(filename) != 0) {
    log().writeLog("RM::loadSound(): Error! Cannot load sound from file '%s'.", filename.c_str());
    return -1;
  }
  slot.setLabel(label);
  log().writeLog(1, "RM::loadSound(): Sound '%s' successfully loaded.", label.c_str());
  sound_count++;
  return 0;
}

int ResourceManager::loadMusic(std::string filename, std::string label) {
  if (refuseWhenStopped()) {
    return -1;
  }
  if (music_count == MAX_MUSICS) {
    log().writeLog("RM::loadMusic(): Error! Unable to add more musics (max is %d).", MAX_MUSICS);
    return -1;
  }
  if (label.empty()) {
    log().writeLog("RM::loadMusic(): Error! Must provide label for music.");
    return -1;
  }
  Music& slot = music[music_count];
  if (slot.loadMusic(filename) != 0) {
    log().writeLog("RM::loadmusic(): Error! Cannot load music from file '%s'.", filename.c_str());
    return -1;
  }
  slot.setLabel(label);
  log().writeLog(1, "RM::loadMusic(): Music '%s' successfully loaded.", label.c_str());
  music_count++;
  return 0;
}

}  // namespace mv
