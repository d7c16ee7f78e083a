#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The type scale. Sizes are points, and one point is one device-independent pixel. Main thread.
class TidloType : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // Tidlo's own scale.
    Q_PROPERTY(QFont section READ section CONSTANT)
    Q_PROPERTY(QFont body READ body CONSTANT)
    Q_PROPERTY(QFont bodyStrong READ bodyStrong CONSTANT)
    Q_PROPERTY(QFont sidebar READ sidebar CONSTANT)
    Q_PROPERTY(QFont sidebarStrong READ sidebarStrong CONSTANT)
    Q_PROPERTY(QFont small READ small CONSTANT)
    Q_PROPERTY(QFont smallStrong READ smallStrong CONSTANT)
    Q_PROPERTY(QFont tiny READ tiny CONSTANT)

    // The platform's text styles.
    Q_PROPERTY(QFont title READ title CONSTANT)
    Q_PROPERTY(QFont headline READ headline CONSTANT)
    Q_PROPERTY(QFont callout READ callout CONSTANT)
    Q_PROPERTY(QFont subheadline READ subheadline CONSTANT)
    Q_PROPERTY(QFont caption READ caption CONSTANT)

public:
    /// Makes the fonts that come with the application known, once. Where one of them cannot be loaded, the platform's
    /// default takes its place.
    static void loadFonts();

    /// The default design.
    Q_INVOKABLE static QFont system(double points, int weight);

    /// The rounded design.
    Q_INVOKABLE static QFont rounded(double points, int weight);

    /// \a font with \a points more between its letters.
    Q_INVOKABLE static QFont tracked(const QFont &font, double points);

    static QFont section() { return system(15, QFont::Bold); }
    static QFont body() { return system(15, QFont::Normal); }
    static QFont bodyStrong() { return system(15, QFont::DemiBold); }
    static QFont sidebar() { return system(13, QFont::Medium); }
    static QFont sidebarStrong() { return system(13, QFont::Bold); }
    static QFont small() { return system(12, QFont::Medium); }
    static QFont smallStrong() { return system(12, QFont::Bold); }
    static QFont tiny() { return system(10.5, QFont::Bold); }
    static QFont title() { return system(22, QFont::Normal); }
    static QFont headline() { return system(13, QFont::Bold); }
    static QFont callout() { return system(12, QFont::Normal); }
    static QFont subheadline() { return system(11, QFont::Normal); }
    static QFont caption() { return system(10, QFont::Normal); }
};

} // namespace tidlo
