// A growable contiguous vector. Callers read count and data directly: a
// request hands data to an Ri call as a plain pointer to count elements.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <ostream>
#include <type_traits>

#include "foundation/String.h"

// How one element type is copied, compared by find and printed. The general
// form fits char, String, long, char* (pointer value, text printed) and void*.
template <class T>
struct ArrayElement {
  static void assign(T& to, const T& from) { to = from; }
  static bool equal(const T& a, const T& b) { return a == b; }
  static void print(std::ostream& os, const T& v) { os << v; }
};

template <>
struct ArrayElement<float> {
  static void assign(float& to, const float& from) { to = from; }
  static bool equal(const float& a, const float& b) { return a == b; }
  static void print(std::ostream& os, const float& v) { os << static_cast<long double>(v); }
};

template <>
struct ArrayElement<uint16_t> {
  static void assign(uint16_t& to, const uint16_t& from) { to = from; }
  static bool equal(const uint16_t& a, const uint16_t& b) { return a == b; }
  static void print(std::ostream& os, const uint16_t& v) { os << static_cast<unsigned long>(v); }
};

// A null pointer prints as (null) rather than setting the stream's bad bit.
template <>
struct ArrayElement<char*> {
  static void assign(char*& to, char* const& from) { to = from; }
  static bool equal(char* const& a, char* const& b) { return a == b; }
  static void print(std::ostream& os, char* const& v) { os << (v ? v : "(null)"); }
};

// A point is found only as the very object stored, and printed as its address.
template <>
struct ArrayElement<float[3]> {
  static void assign(float (&to)[3], const float (&from)[3]) {
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
  }
  static bool equal(const float (&a)[3], const float (&b)[3]) { return &a == &b; }
  static void print(std::ostream& os, const float (&v)[3]) { os << static_cast<const void*>(v); }
};

template <class T>
class Array {
 public:
  Array() { init(nullptr, 12, 0); }
  Array(const T* source, uint32_t capacity, uint32_t count) { init(source, capacity, count); }
  Array(const Array& other) { init(other.data, other.capacity, other.count); }
  virtual ~Array() { delete[] data; }

  Array& operator=(const Array& other);

  void init(const T* source, uint32_t capacity, uint32_t count);
  static void assign(T& to, const T& from) { ArrayElement<T>::assign(to, from); }
  void grow();

  // value must not lie in this array's own buffer: grow may release it.
  void append(const T& value) {
    if (count == capacity) grow();
    assign(data[count], value);
    ++count;
  }

  int32_t find(const T& value) const;
  void print(std::ostream& os) const;

  // Never refuses an index: the array grows to hold it, and count rises to
  // i + 1. The reference lasts until the next grow.
  T& operator()(uint32_t i) {
    while (i >= capacity) grow();
    if (i >= count) count = i + 1;
    return data[i];
  }

  // Empties the array into a fresh buffer of the same capacity.
  virtual void clear();

  uint32_t count;
  uint32_t capacity;
  T* data;

 private:
  static T* copyOf(const T* source, uint32_t capacity, uint32_t count);
};

// How ArrayCursor makes room by default.
struct GrowArray {
  template <class T>
  void operator()(Array<T>& a) const {
    a.grow();
  }
};

// Appends to an array through local copies of its fields, so that a byte or
// number loop keeps them in registers (a store through data could otherwise
// be taken to change them). The array's count is brought up to date before
// every grow, which may throw, and when the cursor goes out of scope. With a
// limit, push takes no element beyond it; `Grow` is called to make room.
template <class T, class Grow = GrowArray>
class ArrayCursor {
 public:
  explicit ArrayCursor(Array<T>& a, Grow grow = Grow(), uint32_t limit = UINT32_MAX)
      : a_(a),
        grow_(grow),
        d_(a.data),
        n_(a.count),
        cap_(a.capacity),
        limit_(limit),
        room_(room()) {}
  ArrayCursor(const ArrayCursor&) = delete;
  ArrayCursor& operator=(const ArrayCursor&) = delete;
  ~ArrayCursor() { a_.count = n_; }

  // False, taking nothing, at the limit.
  bool push(T value) {
    if (n_ == room_ && !spill()) return false;
    d_[n_++] = value;
    return true;
  }
  // Appends past the limit: a terminator always finds room.
  void close(T value) {
    if (n_ == cap_) grow();
    d_[n_++] = value;
  }
  // The next element, or the next n, counted from now on (no limit).
  T& next() {
    if (n_ == cap_) grow();
    return d_[n_++];
  }
  T* next(uint32_t n) {
    while (cap_ - n_ < n) grow();
    T* at = d_ + n_;
    n_ += n;
    return at;
  }

 private:
  uint32_t room() const { return cap_ < limit_ ? cap_ : limit_; }
  bool spill() {
    if (n_ >= limit_) return false;
    grow();
    return true;
  }
  void grow() {
    a_.count = n_;
    grow_(a_);
    d_ = a_.data;
    cap_ = a_.capacity;
    room_ = room();
  }

  Array<T>& a_;
  [[no_unique_address]] Grow grow_;
  T* d_;
  uint32_t n_;
  uint32_t cap_;
  uint32_t limit_;
  uint32_t room_;
};

// A new buffer of capacity elements holding count copies from source. If a
// copy throws (a String running out of memory) the new buffer is released,
// so callers can leave their own state untouched until this has succeeded.
template <class T>
T* Array<T>::copyOf(const T* source, uint32_t capacity, uint32_t count) {
  T* fresh = new T[capacity];
  if constexpr (std::is_trivially_copyable_v<T>) {
    // What assign does for numbers, points and pointers, in one block move.
    if (count > 0) std::memcpy(fresh, source, sizeof(T) * count);
  } else {
    try {
      for (uint32_t i = 0; i < count; ++i) assign(fresh[i], source[i]);
    } catch (...) {
      delete[] fresh;
      throw;
    }
  }
  return fresh;
}

template <class T>
void Array<T>::init(const T* source, uint32_t capacity, uint32_t count) {
  // data is null until the allocation succeeds, so a throw here leaves an
  // object the destructor can release.
  this->data = nullptr;
  this->count = 0;
  if (source && count > capacity) capacity = count;
  this->capacity = capacity;
  if (source) {
    this->data = copyOf(source, capacity, count);
    this->count = count;
  } else {
    this->data = new T[capacity];
  }
}

template <class T>
Array<T>& Array<T>::operator=(const Array& other) {
  if (this == &other) return *this;
  T* fresh = copyOf(other.data, other.capacity, other.count);
  delete[] data;
  data = fresh;
  capacity = other.capacity;
  count = other.count;
  return *this;
}

template <class T>
void Array<T>::grow() {
  uint32_t next = capacity + capacity / 2 + 1;
  if (next < capacity) {
    // std::get_new_handler reads the handler without replacing it.
    if (std::new_handler handler = std::get_new_handler()) handler();
    // The parser's and the interface's handlers never return; one that does
    // cannot make the array larger either.
    std::fputs("fatal error: Array too large\n", stderr);
    std::abort();
  }
  T* fresh = copyOf(data, next, count);
  delete[] data;
  data = fresh;
  capacity = next;
}

template <class T>
int32_t Array<T>::find(const T& value) const {
  for (uint32_t i = 0; i < count; ++i) {
    if (ArrayElement<T>::equal(data[i], value)) return static_cast<int32_t>(i);
  }
  return -1;
}

template <class T>
void Array<T>::print(std::ostream& os) const {
  os << "( " << static_cast<unsigned long>(count) << " )< ";
  for (uint32_t i = 0; i < count; ++i) {
    if (i > 0 && i % 12 == 0) os << "\n\t";
    ArrayElement<T>::print(os, data[i]);
    if (i % 12 != 11 && i + 1 != count) os << ", ";
  }
  os << " >\n";
}

template <class T>
void Array<T>::clear() {
  T* fresh = new T[capacity];
  delete[] data;
  data = fresh;
  count = 0;
}
