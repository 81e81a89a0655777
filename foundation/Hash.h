// A fixed-size chained hash table. T needs hash() and operator==; the table
// never grows or rehashes, and a bucket's list exists only while it is used.
#pragma once

#include <cstdint>

#include "foundation/List.h"

template <class T>
class Hash {
 public:
  // A size of 0 is taken as 1, so the bucket division is always defined.
  explicit Hash(uint16_t size);
  Hash(const Hash&) = delete;
  Hash& operator=(const Hash&) = delete;
  ~Hash() {
    flush();
    delete[] table;
  }

  // An equal key added later sits in front and hides the earlier one.
  int16_t add(const T& value);
  T* find(const T& key) const;
  int16_t detach(const T& key);
  void flush();

  List<T>** table;
  uint16_t size;

 private:
  uint32_t bucket(const T& value) const { return static_cast<uint32_t>(value.hash()) % size; }
};

template <class T>
Hash<T>::Hash(uint16_t size) : table(nullptr), size(size ? size : 1) {
  table = new List<T>*[this->size];
  for (uint16_t i = 0; i < this->size; ++i) table[i] = nullptr;
}

template <class T>
int16_t Hash<T>::add(const T& value) {
  List<T>*& list = table[bucket(value)];
  if (!list) list = new List<T>;
  return list->add(value);
}

template <class T>
T* Hash<T>::find(const T& key) const {
  List<T>* list = table[bucket(key)];
  return list ? list->find(key) : nullptr;
}

template <class T>
int16_t Hash<T>::detach(const T& key) {
  List<T>*& list = table[bucket(key)];
  if (!list || !list->detach(key)) return 0;
  if (!list->head) {
    delete list;
    list = nullptr;
  }
  return 1;
}

template <class T>
void Hash<T>::flush() {
  for (uint16_t i = 0; i < size; ++i) {
    delete table[i];
    table[i] = nullptr;
  }
}
