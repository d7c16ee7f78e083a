#include "ui/design/WindowCover.h"

#include <QGuiApplication>
#include <QPointer>
#include <QRegion>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <cstdlib>
#include <span>

#include <xcb/xcb.h>

namespace {

template <typename Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Answer<Reply> answer(Reply *reply)
{
    return {reply, std::free};
}

/// Looks how the windows of an X server lie on each other, each time that one of them has changed. The server's own
/// news of this leaves out windows with clear corners, and all where a compositor draws them. It listens through a
/// connection of its own, since what is told of all windows would be no news that Qt expects.
class WindowStack final : public QObject
{
public:
    WindowStack(QWindow &window, WindowCover &cover)
        : window(&window)
        , cover(cover)
    {
        if (xcb_connection_has_error(server.get()) != 0)
            return;
        root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(server.get(), root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(server.get());
        look.setSingleShot(true);
        look.setInterval(200); // Windows change many times while they are dragged.
        connect(&look, &QTimer::timeout, this, [this] {
            this->cover.setCovered(isCovered());
            hear(); // What came between the answers, of which the descriptor tells no more.
        });
        news = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(server.get()), QSocketNotifier::Read);
        connect(news.get(), &QSocketNotifier::activated, this, &WindowStack::hear);
    }

private:
    void hear()
    {
        bool isNews = false;
        while (answer(xcb_poll_for_event(server.get())))
            isNews = true;
        if (xcb_connection_has_error(server.get()) != 0) {
            news->setEnabled(false);
            cover.setCovered(false); // Better to move unseen than never again.
        } else if (isNews && !look.isActive()) {
            look.start();
        }
    }

    Answer<xcb_query_tree_reply_t> tree(xcb_window_t of)
    {
        return answer(xcb_query_tree_reply(server.get(), xcb_query_tree(server.get(), of), nullptr));
    }

    /// What lies on the root: the window, or the frame that a window manager has put it into.
    xcb_window_t topLevel(xcb_window_t of)
    {
        for (auto place = tree(of); place && place->parent != XCB_NONE; place = tree(of)) {
            if (place->parent == root)
                return of;
            of = place->parent;
        }
        return XCB_NONE;
    }

    /// On the root, in pixels; empty for one that does not exist, or has nothing to see.
    QRect areaOf(xcb_window_t other)
    {
        const auto attributesAsked = xcb_get_window_attributes(server.get(), other);
        const auto geometryAsked = xcb_get_geometry(server.get(), other);
        const auto attributes = answer(xcb_get_window_attributes_reply(server.get(), attributesAsked, nullptr));
        const auto geometry = answer(xcb_get_geometry_reply(server.get(), geometryAsked, nullptr));
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
            attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
            return {};
        }
        const int border = 2 * geometry->border_width;
        return {geometry->x, geometry->y, geometry->width + border, geometry->height + border};
    }

    bool isCovered()
    {
        if (!window || window->handle() == nullptr)
            return false;
        const xcb_window_t own = topLevel(static_cast<xcb_window_t>(window->winId()));
        const auto all = tree(root);
        if (own == XCB_NONE || !all)
            return false;
        QRegion seen = areaOf(own).intersected(areaOf(root));
        bool isAbove = false; // They are told from the bottom to the top.
        for (const xcb_window_t other : std::span(xcb_query_tree_children(all.get()), all->children_len)) {
            if (isAbove && !seen.isEmpty())
                seen -= areaOf(other);
            isAbove = isAbove || other == own;
        }
        return seen.isEmpty();
    }

    QPointer<QWindow> window;
    WindowCover &cover;
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server{xcb_connect(nullptr, nullptr), xcb_disconnect};
    xcb_window_t root = XCB_NONE;
    QTimer look;
    std::unique_ptr<QSocketNotifier> news; ///< Gone before the connection is.
};

} // namespace

/// Wayland takes the exposure away.
std::unique_ptr<QObject> WindowCover::watch(QWindow &window)
{
    const bool isX11 = QGuiApplication::platformName() == u"xcb";
    return isX11 ? std::make_unique<WindowStack>(window, *this) : nullptr;
}
