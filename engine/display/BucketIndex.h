// Items filed into numbered buckets by a counting sort, so that each bucket's
// items are found without looking at all: each bucket keeps its items in the
// order they were filed. The storage is kept from one sort to the next, so
// that sorting allocates nothing once warm.
#pragma once

#include <cstddef>
#include <vector>

namespace mv {

class BucketIndex {
 public:
  // Files items by `forEachPair(visit)`, which calls visit(item, bucket) for
  // every item in each bucket it belongs to, buckets below `bucket_count`. It
  // runs twice and must give the same pairs both times.
  template <typename ForEachPair>
  void sort(std::size_t bucket_count, ForEachPair forEachPair);

  // Calls visit(item) for each item of `bucket`, in the order they were filed.
  template <typename Visit>
  void forEachIn(std::size_t bucket, Visit visit) const;

 private:
  // Turns the counts of each bucket into where its items start.
  void placeBuckets();

  // Where each bucket's items start in `items`, one past the end last.
  std::vector<std::size_t> starts;
  std::vector<std::size_t> fill;
  std::vector<std::size_t> items;
};

template <typename ForEachPair>
void BucketIndex::sort(std::size_t bucket_count, ForEachPair forEachPair) {
  starts.assign(bucket_count + 1, 0);
  forEachPair([this](std::size_t, std::size_t bucket) { starts[bucket + 1]++; });
  placeBuckets();
  forEachPair([this](std::size_t item, std::size_t bucket) { items[fill[bucket]++] = item; });
}

template <typename Visit>
void BucketIndex::forEachIn(std::size_t bucket, Visit visit) const {
  for (std::size_t at = starts[bucket]; at < starts[bucket + 1]; ++at) {
    visit(items[at]);
  }
}

}  // namespace mv
