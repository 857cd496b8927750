// Walks an ObjectList in place. It sees changes made to the list during the
// walk; walk a copy where handlers might change the list.
#pragma once

#include "ObjectList.h"

namespace mv {

class ObjectListIterator {
 public:
  // Starts at the first element. The list must outlive the iterator.
  explicit ObjectListIterator(const ObjectList* list);

  void first();

  // Moves on by one, but never past the end.
  void next();

  bool isDone() const;

  // The element at the cursor, or null when the walk is done.
  Object* currentObject() const;

 private:
  int index;
  const ObjectList* list;
};

}  // namespace mv
