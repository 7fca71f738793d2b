#pragma once

#include <utility>

class QWidget;

/// Makes a widget, action or layout that its parent owns and destroys.
template <class T, class Parent, class... Arguments>
T* MakeChild(Parent* parent, Arguments&&... arguments) {
    return new T(std::forward<Arguments>(arguments)..., parent);
}
