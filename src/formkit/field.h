#pragma once
// What a record is made of, as data: a field is its object name, its caption,
// its kind and its rule. A record's fields are one list:
//
//   const FieldList deviceFields = {
//       Field::text("Name", "Наименование").required(),
//       Field::text("Serial", "Серийный номер").longest(40),
//       Field::date("Bought", "Дата покупки"),
//   };
//
// Values go in and out as texts, as the server gives and a statement takes them:
// a date as "yyyy-MM-dd", a check as "1" and "0", a choice as its id.

#include "formkit/choices.h"

#include <functional>
#include <optional>

class QWidget;

namespace formkit {

enum class FieldKind {
    Text,
    Password,
    Number,  ///< typed by the session's number pattern; its text as typed
    Integer, ///< a spin box
    Decimal, ///< a spin box with decimals
    Lines,   ///< several lines of text
    Date,
    Check, ///< the caption stands on the box
    Choice,
    Path,   ///< a text with a button "..."
    Colour, ///< a button that wears the colour that its value means
    Shown,  ///< read only
};

class Field {
public:
    static Field text(const char* name, const char* caption) { return {name, caption, FieldKind::Text}; }
    static Field password(const char* name, const char* caption) { return {name, caption, FieldKind::Password}; }
    static Field number(const char* name, const char* caption) { return {name, caption, FieldKind::Number}; }
    static Field integer(const char* name, const char* caption, int least, int most);
    static Field decimal(const char* name, const char* caption, double least, double most, int decimals = 2);
    static Field lines(const char* name, const char* caption, int least = 3);
    static Field date(const char* name, const char* caption) { return {name, caption, FieldKind::Date}; }
    static Field check(const char* name, const char* caption) { return {name, caption, FieldKind::Check}; }
    /// The choices are asked for whenever the fields are shown anew.
    static Field choice(const char* name, const char* caption, std::function<Choices()> choices);
    static Field shown(const char* name, const char* caption) { return {name, caption, FieldKind::Shown}; }
    /// What the button does: makes a new text of the present one, an empty text
    /// leaving it as it is.
    using Chooser = std::function<QString(QWidget* form, const QString& now)>;
    static Field path(const char* name, const char* caption, const char* button, Chooser choose);
    static Field fileToOpen(const char* name, const char* caption, const char* button, const QString& title,
                            const QString& filter);
    static Field folder(const char* name, const char* caption, const char* button, const QString& title);
    /// A colour by any code; `wears` says what the button looks like.
    static Field colour(const char* name, const char* caption, Chooser choose,
                        std::function<QColor(const QString&)> wears);
    /// The host's colour index, chosen in the host's box.
    static Field colourIndex(const char* name, const char* caption);
    /// "#RRGGBB", chosen in the host's box of true colours.
    static Field colourHex(const char* name, const char* caption);

    // --- rules ------------------------------------------------------------------
    /// Without a text of its own the refusal names the caption.
    Field&& required(const QString& refusal = QString()) &&;
    Field&& longest(int length) &&;
    Field&& matching(const QString& pattern) &&; ///< refused as it is typed
    Field&& starts(const QString& value) &&;     ///< what a new record shows
    Field&& tip(const QString& text) &&;
    Field&& step(double step) &&;
    /// The unit of a number whose caption does not tell it behind a comma or in brackets.
    Field&& in(const QString& unit) &&;
    Field&& withoutUnit() &&; ///< a count, an identifier, a factor
    /// The style of a button that wears a colour; %1 is the colour.
    Field&& dressed(const QString& sheet) &&;
    /// An empty text goes into a statement as this, e.g. "null" or "0".
    Field&& emptyAs(const QString& text) &&;

    QString name;
    QString caption;
    FieldKind kind;
    bool isRequired = false;
    QString refusal;
    int length = 0;
    QString pattern;
    QString start;
    QString toolTip;
    std::optional<QString> unit; ///< empty: it has none
    QString empty;
    double least = 0.0;
    double most = 0.0;
    double singleStep = 1.0;
    int decimals = 0; ///< of a field of several lines: how many at least
    QString buttonName;
    std::function<Choices()> choices;
    Chooser chooser;
    std::function<QColor(const QString&)> wears;
    QString sheet;

private:
    Field(const char* name, const char* caption, FieldKind kind)
        : name(QString::fromUtf8(name)), caption(QString::fromUtf8(caption)), kind(kind)
    { }
};

using FieldList = std::vector<Field>;

/// What is wrong with the value; empty when nothing is.
QString faultOf(const Field& field, const QString& value);

} // namespace formkit
