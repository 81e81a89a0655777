// A singly linked list that owns its elements. T needs operator==.
#pragma once

#include <cstdint>

template <class T>
struct ListElement {
  ListElement(const T& value, ListElement* next) : next(next), value(value) {}

  ListElement* next;
  T value;
};

template <class T>
class List {
 public:
  List() : head(nullptr) {}
  List(const List& other);
  List& operator=(const List&) = delete;
  ~List() { flush(); }

  int16_t add(const T& value);
  ListElement<T>* findPred(const T& key) const;
  T* find(const T& key) const;
  int16_t detachHead();
  int16_t detach(const T& key);
  void flush();

  ListElement<T>* head;
};

// Each copy goes in at the head, so the copy holds the elements in reverse.
template <class T>
List<T>::List(const List& other) : head(nullptr) {
  try {
    for (ListElement<T>* e = other.head; e; e = e->next) add(e->value);
  } catch (...) {
    flush();
    throw;
  }
}

template <class T>
int16_t List<T>::add(const T& value) {
  head = new ListElement<T>(value, head);
  return 1;
}

// The element whose successor equals key, or the last element when none does;
// the head itself is never compared.
template <class T>
ListElement<T>* List<T>::findPred(const T& key) const {
  ListElement<T>* e = head;
  if (!e) return nullptr;
  while (e->next && !(e->next->value == key)) e = e->next;
  return e;
}

template <class T>
T* List<T>::find(const T& key) const {
  if (!head) return nullptr;
  if (head->value == key) return &head->value;
  ListElement<T>* pred = findPred(key);
  return pred->next ? &pred->next->value : nullptr;
}

template <class T>
int16_t List<T>::detachHead() {
  if (!head) return 0;
  ListElement<T>* old = head;
  head = old->next;
  delete old;
  return 1;
}

template <class T>
int16_t List<T>::detach(const T& key) {
  if (!head) return 0;
  if (head->value == key) return detachHead();
  ListElement<T>* pred = findPred(key);
  ListElement<T>* victim = pred->next;
  if (!victim) return 0;
  pred->next = victim->next;
  delete victim;
  return 1;
}

template <class T>
void List<T>::flush() {
  while (head) detachHead();
}
