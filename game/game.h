// What the whole game shares: the list of its files, and the one reading of
// the clock that seeds its random numbers.
#pragma once

#include <ctime>
#include <string>

// Gives the world the game's size: 200 by 48 cells, reaching past the
// window's right edge, where only scenery goes.
void setGameBoundary();

// Loads every sprite, sound and track of the game, from the folders one level
// above the working directory. A file that fails is logged and left out.
void loadResources();

// The current time in whole seconds, which the hero, each room and each cactus
// seed the random generator with; a fixed time makes two games alike.
std::time_t gameSeconds();

// From now on gameSeconds() answers `seconds`; a negative value returns to the clock.
void fixGameSeconds(std::time_t seconds);

// Plays the sound loaded under `label`, if there is one.
void playSound(const std::string& label);

// Whether the world still takes new objects: while it shuts down it deletes
// what it holds, and objects built then would belong to nobody.
bool worldIsOpen();

class Hero;

// The hero in the world, or null if there is none.
Hero* findHero();

// Whether the end screen is up. The hero is gone from the moment it is built,
// so a pointer to him held from before must not be followed any more.
bool endScreenIsUp();
