// SPDX-License-Identifier: GPL-3.0-or-later
// How values of Qt and of the controls stand in the message of a test that fails: as text instead of bytes.
// All sources of a test program have to agree on it, so it is part of what the programs with widgets
// precompile.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QDebug>
#include <QMetaEnum>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <concepts>
#include <ostream>
#include <type_traits>

namespace dosmara {

template <class T, class... Types>
concept OneOf = (std::same_as<T, Types> || ...);

template <class T>
concept PrintedAsDebugged =
    OneOf<T, QString, QByteArray, QStringList, QColor, QPoint, QPointF, QRect, QRectF, QSize, QVariant>;

template <class E>
concept ScopedEnum = std::is_enum_v<E> && !std::is_convertible_v<E, int>;

template <class E>
concept KnownByName = requires(E value) { qt_getEnumMetaObject(value); };

// An enumeration of the project: the word of a value that Qt knows by name, else its number.
template <ScopedEnum E>
void PrintTo(const E& value, std::ostream* out) {
  if constexpr (KnownByName<E>) {
    *out << QMetaEnum::fromType<E>().valueToKey(static_cast<int>(value));
  } else {
    *out << static_cast<int>(value);
  }
}

}  // namespace dosmara

// The test library looks for these where the types of Qt are, in no namespace.
template <dosmara::PrintedAsDebugged T>
void PrintTo(const T& value, std::ostream* out) {
  QString text;
  QDebug(&text).nospace() << value;
  *out << text.toStdString();
}

// An object is told by its name.
template <std::derived_from<QObject> T>
void PrintTo(T* const& object, std::ostream* out) {
  if (object == nullptr) {
    *out << "none";
  } else {
    *out << object->metaObject()->className() << ' ' << object->objectName().toStdString();
  }
}
