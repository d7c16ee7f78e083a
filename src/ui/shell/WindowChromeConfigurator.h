#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace tidlo {

/// Takes no room and shows nothing. It makes the content of its window run to the edges, without a title, on a clear
/// background. Applied one turn of the event loop after it enters a window, and again whenever the window's state or
/// the theme changes, since the platform may reset the chrome then. Without a window it does nothing. Main thread.
class WindowChromeConfigurator : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether the system draws the window's buttons and resizes at its edges.
    Q_PROPERTY(bool isNative READ isNative CONSTANT)

public:
    explicit WindowChromeConfigurator(QQuickItem *parent = nullptr);

    static bool isNative();

    /// Schedules the adjustment.
    Q_INVOKABLE void refresh();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void watch(QQuickWindow *window);
    static void adjust(QQuickWindow &window); ///< Implemented once for each system.

    QPointer<QQuickWindow> watched;
};

} // namespace tidlo
