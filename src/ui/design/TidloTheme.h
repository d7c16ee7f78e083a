#pragma once

#include "ui/design/Motion.h"
#include "ui/design/ThemePreference.h"

#include <QColor>
#include <QObject>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tidlo {

/// The colours of the interface, and the theme that chooses them. All are sRGB. Main thread.
///
/// While the scheme changes, every colour moves on a spring from one scheme's value to the other's; items are only
/// drawn again, so no animation starts anew. The first preference that is set is in force at once.
class TidloTheme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    /// The stored preference, as ThemePreference.h explains it.
    Q_PROPERTY(QString preference READ preference WRITE setPreference NOTIFY preferenceChanged)
    Q_PROPERTY(QString label READ label NOTIFY preferenceChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY preferenceChanged)
    Q_PROPERTY(QString nextPreference READ nextPreference NOTIFY preferenceChanged)
    /// Whether the dark scheme is in force, or the change to it is under way.
    Q_PROPERTY(bool isDark READ isDark NOTIFY schemeChanged)
    /// From 1, dark, to 0, light, for anything other than a colour that changes with the scheme.
    Q_PROPERTY(double darkness READ darkness NOTIFY colorsChanged)

    /// Whether texts and symbols have the contrast that WCAG 2 asks for, and borders are opaque. Surfaces stay as they
    /// are.
    Q_PROPERTY(bool isHighContrast READ isHighContrast WRITE setHighContrast NOTIFY colorsChanged)

    // The accents. They are the same in both schemes; only high contrast changes them.
    Q_PROPERTY(QColor blue READ blue NOTIFY colorsChanged)
    Q_PROPERTY(QColor green READ green NOTIFY colorsChanged)
    Q_PROPERTY(QColor red READ red NOTIFY colorsChanged)
    /// The colour of labels on green.
    Q_PROPERTY(QColor accentLabel READ accentLabel NOTIFY colorsChanged)

    // Surfaces, texts and lines.
    Q_PROPERTY(QColor cardSurface READ cardSurface NOTIFY colorsChanged)
    Q_PROPERTY(QColor controlSurface READ controlSurface NOTIFY colorsChanged)
    Q_PROPERTY(QColor controlBorder READ controlBorder NOTIFY colorsChanged)
    Q_PROPERTY(QColor primaryText READ primaryText NOTIFY colorsChanged)
    Q_PROPERTY(QColor mutedText READ mutedText NOTIFY colorsChanged)
    Q_PROPERTY(QColor windowBackground READ windowBackground NOTIFY colorsChanged)
    Q_PROPERTY(QColor topBarBackground READ topBarBackground NOTIFY colorsChanged)
    Q_PROPERTY(QColor railBackground READ railBackground NOTIFY colorsChanged)
    Q_PROPERTY(QColor railSymbol READ railSymbol NOTIFY colorsChanged)
    Q_PROPERTY(QColor sidebarBackground READ sidebarBackground NOTIFY colorsChanged)
    /// The background of a selected text, and the text.
    Q_PROPERTY(QColor selection READ selection NOTIFY colorsChanged)
    Q_PROPERTY(QColor selectedText READ selectedText NOTIFY colorsChanged)

    // The platform's own colours.
    Q_PROPERTY(QColor systemBlue READ systemBlue NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemMint READ systemMint NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemPurple READ systemPurple NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemYellow READ systemYellow NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemOrange READ systemOrange NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemRed READ systemRed NOTIFY colorsChanged)
    Q_PROPERTY(QColor systemGray READ systemGray NOTIFY colorsChanged)
    Q_PROPERTY(QColor secondaryLabel READ secondaryLabel NOTIFY colorsChanged)
    Q_PROPERTY(QColor divider READ divider NOTIFY colorsChanged)
    /// The colour of each Hue, by its number.
    Q_PROPERTY(QList<QColor> hues READ hues NOTIFY colorsChanged)

public:
    /// The colours that tell things of one kind apart, such as categories.
    enum class Hue { Blue, Mint, Purple, Yellow, Orange, Red, AccentBlue, AccentGreen, AccentRed, PrimaryText };
    Q_ENUM(Hue)

    explicit TidloTheme(QObject *parent = nullptr);

    QString preference() const { return storedPreference; }
    void setPreference(const QString &preference);
    QString label() const { return themeLabel(storedPreference); }
    QString symbol() const { return themeSymbol(storedPreference); }
    QString nextPreference() const { return themeAfter(storedPreference); }
    bool isDark() const { return scheme() == ColorScheme::dark; }
    double darkness() const { return currentDarkness; }

    bool isHighContrast() const { return highContrast; }
    void setHighContrast(bool isHigh); ///< At once.

    // The accents of the logo, which never change.
    static QColor logoBlue();
    static QColor logoGreen();

    QColor blue() const;
    QColor green() const;
    QColor red() const;
    QColor accentLabel() const;
    QColor cardSurface() const;
    QColor controlSurface() const;
    QColor controlBorder() const;
    QColor primaryText() const;
    QColor mutedText() const;
    QColor windowBackground() const;
    QColor topBarBackground() const;
    QColor railBackground() const;
    QColor railSymbol() const;
    QColor sidebarBackground() const;
    QColor selection() const;
    QColor selectedText() const;
    QColor systemBlue() const;
    QColor systemMint() const;
    QColor systemPurple() const;
    QColor systemYellow() const;
    QColor systemOrange() const;
    QColor systemRed() const;
    QColor systemGray() const;
    QColor secondaryLabel() const;
    QColor divider() const;
    QList<QColor> hues() const;

    /// \a color at \a opacity times its own.
    Q_INVOKABLE static QColor faded(const QColor &color, double opacity);

    /// \a color at \a opacity times its own, but opaque where contrast is high: for borders, and for surfaces of
    /// labels.
    Q_INVOKABLE QColor solid(const QColor &color, double opacity) const;

    /// \a from and \a to, mixed: 0 gives \a from, 1 gives \a to. A \a share outside of that, as a spring overshoots, is
    /// clamped.
    Q_INVOKABLE static QColor blended(const QColor &from, const QColor &to, double share);

    /// \a dark and \a light, mixed for \a darkness, which is a parameter so that a binding follows it.
    Q_INVOKABLE static double mixed(double darkness, double dark, double light);

    /// The scheme that the desktop wishes, if it has said so; otherwise the platform's colours decide. The first one
    /// set is in force at once, since the window may be new.
    void setDesktopScheme(std::optional<ColorScheme> told);

    /// Sets how the colours change from now on.
    void setMotion(const SpringMotion &motion);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void preferenceChanged();
    void schemeChanged();
    void colorsChanged();

private:
    ColorScheme scheme() const;
    void followPlatform();
    void changeScheme(ColorScheme before);
    void finishChange() { change.setCurrentTime(change.duration()); }

    QString storedPreference = defaultTheme;
    std::optional<ColorScheme> desktopScheme;
    ColorScheme platformScheme = ColorScheme::light;
    double currentDarkness = 1;
    bool isChosen = false; ///< Whether a preference has been set.
    bool highContrast = false;
    bool isTold = false; ///< Whether the desktop has said which scheme it wishes.
    QVariantAnimation change;
};

} // namespace tidlo
