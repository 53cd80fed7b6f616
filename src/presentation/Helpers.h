#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

class QJSEngine;
class QQmlEngine;

namespace Zorvane {

// Visibility of an element: Visible shows it, Collapsed takes it out of the layout.
enum class Visibility
{
    Visible = 0,
    Collapsed = 1,
};

// Pure functions that the markup's bindings call, the product identity and
// the locale names. Reached from QML as the singleton "Helpers"; the class has
// no instances of its own to offer.
class Helpers : public QObject
{
    Q_OBJECT

    /// Country code of the system's default locale.
    Q_PROPERTY(QString SystemRegion READ SystemRegion CONSTANT)
    /// Language and country of the system's default locale, as "en-GB".
    Q_PROPERTY(QString SystemLocaleName READ SystemLocaleName CONSTANT)
    /// Language and country of the user's locale, as "en-GB".
    Q_PROPERTY(QString UserLocaleName READ UserLocaleName CONSTANT)
    /// The markup's types have no unsigned 32-bit integer; the year fits an int.
    Q_PROPERTY(int ReleaseYear READ ReleaseYearForMarkup CONSTANT)
    Q_PROPERTY(QString CompanyName READ CompanyName CONSTANT)
    Q_PROPERTY(QString ProductName READ ProductName CONSTANT)
    Q_PROPERTY(QString ShortName READ ShortName CONSTANT)
    Q_PROPERTY(QString ProductVersion READ ProductVersion CONSTANT)

public:
    static QString SystemRegion();
    static QString SystemLocaleName();
    static QString UserLocaleName();
    static quint32 ReleaseYear();
    static int ReleaseYearForMarkup() { return static_cast<int>(ReleaseYear()); }
    static QString CompanyName();
    static QString ProductName();
    static QString ShortName();
    static QString ProductVersion();

    Q_INVOKABLE bool InvertBoolean(bool value) const { return !value; }
    // A null state (an undefined or null value) shows the element.
    Q_INVOKABLE int BooleanToVisibility(const QVariant& state) const;
    // A null state hides the element: on purpose not the mirror of the above.
    Q_INVOKABLE int InverseBooleanToVisibility(const QVariant& state) const;
    Q_INVOKABLE bool StringToEnabled(const QString& text) const { return !text.isEmpty(); }
    Q_INVOKABLE int StringToVisibility(const QString& text) const;
    // The value put through a format string ("{0}" or "{}") with the named
    // locale ("C" when empty); an empty format gives the value itself. A
    // locale that the runtime does not know fails with "bad locale name", a
    // bad format string with the formatter's error: thrown to a C++ caller,
    // raised as a script error inside a binding.
    Q_INVOKABLE QString FormatString(const QString& format, const QString& value,
                                     const QString& localeName) const;
    Q_INVOKABLE QString TriStateText(const QVariant& state, const QString& whenNull,
                                     const QString& whenTrue, const QString& whenFalse) const;

    // The one object behind the QML singleton.
    static Helpers* create(QQmlEngine*, QJSEngine*);

private:
    explicit Helpers(QObject* parent = nullptr);
};

} // namespace Zorvane
