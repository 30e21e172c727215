#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <utility>

// Controls by their fixed names: made in the class body, one line each, so that name, type and
// member stand together. The name becomes the objectName.
namespace widgets {

template <class T, class... Args>
T* control(QWidget* parent, const char* name, Args&&... args) {
  auto* widget = new T(std::forward<Args>(args)..., parent);
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

// Member k of an array is named NAME_k. txtVerbrauch(3) is its member 3.
template <class T, int count>
class ControlArray {
 public:
  ControlArray(QWidget* parent, const char* name) {
    for (int i = 0; i < count; ++i) {
      members_[static_cast<std::size_t>(i)] = new T(parent);
      members_[static_cast<std::size_t>(i)]->setObjectName(QString::fromLatin1(name) +
                                                           QLatin1Char('_') + QString::number(i));
    }
  }
  T* operator()(int index) const { return members_.at(static_cast<std::size_t>(index)); }
  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }
  static constexpr int size() { return count; }

 private:
  std::array<T*, static_cast<std::size_t>(count)> members_{};
};

}  // namespace widgets
