#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The type scale, in the fonts that come with the application; a font that cannot be loaded is replaced by the
/// platform's default. Sizes are points, and one point is one device-independent pixel. Main thread.
class TidloType : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    /// How large texts are: 1 is as designed.
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged)

    // Tidlo's own scale.
    Q_PROPERTY(QFont section READ section NOTIFY scaleChanged)
    Q_PROPERTY(QFont body READ body NOTIFY scaleChanged)
    Q_PROPERTY(QFont bodyStrong READ bodyStrong NOTIFY scaleChanged)
    Q_PROPERTY(QFont sidebar READ sidebar NOTIFY scaleChanged)
    Q_PROPERTY(QFont sidebarStrong READ sidebarStrong NOTIFY scaleChanged)
    Q_PROPERTY(QFont small READ small NOTIFY scaleChanged)
    Q_PROPERTY(QFont smallStrong READ smallStrong NOTIFY scaleChanged)
    Q_PROPERTY(QFont tiny READ tiny NOTIFY scaleChanged)

    // The platform's text styles.
    Q_PROPERTY(QFont title READ title NOTIFY scaleChanged)
    Q_PROPERTY(QFont headline READ headline NOTIFY scaleChanged)
    Q_PROPERTY(QFont callout READ callout NOTIFY scaleChanged)
    Q_PROPERTY(QFont subheadline READ subheadline NOTIFY scaleChanged)
    Q_PROPERTY(QFont caption READ caption NOTIFY scaleChanged)

public:
    double scale() const { return textScale; }
    void setScale(double scale);

    /// The default design, at \a scale, which is a parameter so that a binding follows it.
    Q_INVOKABLE static QFont system(double points, int weight, double scale = 1);

    /// The rounded design.
    Q_INVOKABLE static QFont rounded(double points, int weight, double scale = 1);

    /// \a font with \a points more between its letters.
    Q_INVOKABLE static QFont tracked(const QFont &font, double points);

    QFont section() const { return system(15, QFont::Bold, textScale); }
    QFont body() const { return system(15, QFont::Normal, textScale); }
    QFont bodyStrong() const { return system(15, QFont::DemiBold, textScale); }
    QFont sidebar() const { return system(13, QFont::Medium, textScale); }
    QFont sidebarStrong() const { return system(13, QFont::Bold, textScale); }
    QFont small() const { return system(12, QFont::Medium, textScale); }
    QFont smallStrong() const { return system(12, QFont::Bold, textScale); }
    QFont tiny() const { return system(10.5, QFont::Bold, textScale); }
    QFont title() const { return system(22, QFont::Normal, textScale); }
    QFont headline() const { return system(13, QFont::Bold, textScale); }
    QFont callout() const { return system(12, QFont::Normal, textScale); }
    QFont subheadline() const { return system(11, QFont::Normal, textScale); }
    QFont caption() const { return system(10, QFont::Normal, textScale); }

Q_SIGNALS:
    void scaleChanged();

private:
    double textScale = 1;
};

} // namespace tidlo
