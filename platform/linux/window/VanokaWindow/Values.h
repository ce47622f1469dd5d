#pragma once

#include "AttributedText.h"
#include "Controls.h"
#include "KeyRow.h"
#include "LetterRow.h"
#include "TextStyle.h"

#include <QFont>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <string_view>

/// The content's values in the form that QML reads. A colour is the name of its role, which Theme.qml knows.
namespace vanoka {

QString qtText(std::string_view text);
QString nameOf(ColourRole colour);

/// A text with its looks; an absent one is empty.
class TextValue {
    Q_GADGET
    QML_VALUE_TYPE(textValue)
    Q_PROPERTY(QString text MEMBER text CONSTANT FINAL)
    Q_PROPERTY(QFont font MEMBER font CONSTANT FINAL)
    Q_PROPERTY(QString colour MEMBER colour CONSTANT FINAL)

public:
    TextValue() = default;
    explicit TextValue(const StyledText& content);
    explicit TextValue(const std::optional<StyledText>& content);
    bool operator==(const TextValue&) const = default;

    QString text;
    QFont font;
    QString colour;
};

/// The dot of a sidebar row; an absent one has no diameter.
class DotValue {
    Q_GADGET
    QML_VALUE_TYPE(dotValue)
    Q_PROPERTY(double diameter MEMBER diameter CONSTANT FINAL)
    Q_PROPERTY(QString colour MEMBER colour CONSTANT FINAL)
    Q_PROPERTY(QString help MEMBER help CONSTANT FINAL)

public:
    DotValue() = default;
    explicit DotValue(const std::optional<Dot>& content);
    bool operator==(const DotValue&) const = default;

    double diameter = 0;
    QString colour;
    QString help;
};

/// The control of a key row.
class KeyControlValue {
    Q_GADGET
    QML_VALUE_TYPE(keyControlValue)
    Q_PROPERTY(QString kind MEMBER kind CONSTANT FINAL)
    Q_PROPERTY(QString title MEMBER title CONSTANT FINAL)
    Q_PROPERTY(QString help MEMBER help CONSTANT FINAL)
    Q_PROPERTY(QString colour MEMBER colour CONSTANT FINAL)
    Q_PROPERTY(QString spoken MEMBER spoken CONSTANT FINAL)
    Q_PROPERTY(bool isOn MEMBER isOn CONSTANT FINAL)

public:
    KeyControlValue() = default;
    explicit KeyControlValue(const KeyRow& row);
    bool operator==(const KeyControlValue&) const = default;

    QString kind;  ///< "symbol", "switch" or "button"
    QString title; ///< a button's title, or a symbol's name
    QString help;
    QString colour;
    QString spoken;
    bool isOn = false;
};

/// A text that opens an address; without an address it is plain text.
class LinkValue {
    Q_GADGET
    QML_VALUE_TYPE(linkValue)
    Q_PROPERTY(vanoka::TextValue label MEMBER label CONSTANT FINAL)
    Q_PROPERTY(QString address MEMBER address CONSTANT FINAL)

public:
    LinkValue() = default;
    explicit LinkValue(const Link& content);
    explicit LinkValue(const AttributedPiece& content);

    TextValue label;
    QString address;
};

} // namespace vanoka
