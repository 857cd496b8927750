#include "ObjectList.h"

#include <new>
#include <stdexcept>

namespace mv {

ObjectList::ObjectList() {
  try {
    list.reserve(1);
  } catch (const std::bad_alloc&) {
    // Left with no storage; the first insert tries again.
  }
}

// A copy keeps the capacity of its original, so that copies grow alike.
ObjectList::ObjectList(const ObjectList& other) { *this = other; }

ObjectList& ObjectList::operator=(const ObjectList& other) {
  if (this == &other) {
    return *this;
  }
  try {
    std::vector<Object*> copy;
    copy.reserve(other.list.capacity());
    copy.assign(other.list.begin(), other.list.end());
    list.swap(copy);
  } catch (const std::bad_alloc&) {
    std::vector<Object*>().swap(list);
  }
  return *this;
}

int ObjectList::insert(Object* object) {
  if (object == nullptr) {
    return -1;
  }
  try {
    if (list.size() == list.capacity()) {
      list.reserve(list.capacity() == 0 ? 1 : list.capacity() * 2);
    }
  } catch (const std::bad_alloc&) {
    return -1;
  }
  list.push_back(object);
  return 0;
}

int ObjectList::remove(Object* object) {
  for (auto it = list.begin(); it != list.end(); ++it) {
    if (*it == object) {
      list.erase(it);
      return 0;
    }
  }
  return -1;
}

void ObjectList::clear() { list.clear(); }

int ObjectList::getCount() const { return static_cast<int>(list.size()); }

int ObjectList::getCapacity() const { return static_cast<int>(list.capacity()); }

bool ObjectList::isEmpty() const { return list.empty(); }

void ObjectList::checkIndex(int index) const {
  if (index < 0 || index >= getCount()) {
    throw std::out_of_range("Invalid index!");
  }
}

Object*& ObjectList::operator[](int index) {
  checkIndex(index);
  return list[index];
}

Object* ObjectList::operator[](int index) const {
  checkIndex(index);
  return list[index];
}

ObjectList ObjectList::operator+(ObjectList other) const {
  ObjectList sum(*this);
  for (Object* object : other.list) {
    sum.insert(object);
  }
  return sum;
}

}  // namespace mv
