// The engine's one container of objects: a growing array of pointers, copied
// by value. The list does not own the objects it holds.
#pragma once

#include <vector>

namespace mv {

class Object;

class ObjectList {
 public:
  // An empty list with room for one object.
  ObjectList();
  ObjectList(const ObjectList& other);
  ObjectList& operator=(const ObjectList& other);

  // Appends the object, doubling the storage when it is full. -1 for a null
  // pointer or when memory runs out; the list is then unchanged.
  int insert(Object* object);

  // Removes the first occurrence, keeping the order of the rest; -1 if absent.
  int remove(Object* object);

  // Empties the list; the storage stays for later insertions.
  void clear();

  int getCount() const;
  int getCapacity() const;
  bool isEmpty() const;

  // The element at `index`; throws std::out_of_range("Invalid index!") outside 0 to count - 1.
  Object*& operator[](int index);
  Object* operator[](int index) const;

  // This list followed by the non-null elements of `other`.
  ObjectList operator+(ObjectList other) const;

 private:
  void checkIndex(int index) const;

  std::vector<Object*> list;
};

}  // namespace mv
