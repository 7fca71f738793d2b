#pragma once

#include <forward_list>

/// A singly linked list that owns its items.
template <class Item>
using LList = std::forward_list<Item>;
