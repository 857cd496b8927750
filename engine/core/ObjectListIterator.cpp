#include "ObjectListIterator.h"

namespace mv {

ObjectListIterator::ObjectListIterator(const ObjectList* walked) : index(0), list(walked) {}

void ObjectListIterator::first() { index = 0; }

void ObjectListIterator::next() {
  if (index < list->getCount()) {
    index++;
  }
}

bool ObjectListIterator::isDone() const { return index >= list->getCount(); }

Object* ObjectListIterator::currentObject() const { return isDone() ? nullptr : (*list)[index]; }

}  // namespace mv
