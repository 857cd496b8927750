#include "BucketIndex.h"

namespace mv {

void BucketIndex::placeBuckets() {
  for (std::size_t bucket = 1; bucket < starts.size(); ++bucket) {
    starts[bucket] += starts[bucket - 1];
  }
  items.resize(starts.back());
  fill.assign(starts.begin(), starts.end() - 1);
}

}  // namespace mv
