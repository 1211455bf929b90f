// SPDX-License-Identifier: MIT
#include "ui/main/iconic.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace zorvane::ui {

namespace {

constexpr std::uint32_t iconicState = 3; // of the conventions between clients of an X server
constexpr std::string_view changeState = "WM_CHANGE_STATE";

struct Freed {
    void operator()(void* answer) const { std::free(answer); }
};

xcb_atom_t atomOf(xcb_connection_t* server, std::string_view name) {
    const auto asked = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Freed> answer(
        xcb_intern_atom_reply(server, asked, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t rootOf(xcb_connection_t* server, xcb_window_t window) {
    const auto asked = xcb_get_geometry(server, window);
    const std::unique_ptr<xcb_get_geometry_reply_t, Freed> answer(
        xcb_get_geometry_reply(server, asked, nullptr));
    return answer ? answer->root : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

bool askForIconic(const QWidget& window) {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* server = x11 == nullptr ? nullptr : x11->connection();
    if (server == nullptr || QGuiApplication::platformName() != u"xcb") return false;
    const auto number = static_cast<xcb_window_t>(window.window()->winId());
    const xcb_window_t root = rootOf(server, number);
    const xcb_atom_t wish = atomOf(server, changeState);
    if (root == XCB_WINDOW_NONE || wish == XCB_ATOM_NONE) return false;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = number;
    message.type = wish;
    message.data.data32[0] = iconicState;
    constexpr std::uint32_t heardBy = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_send_event(server, 0, root, heardBy, reinterpret_cast<const char*>(&message));
    xcb_flush(server);
    return true;
}

} // namespace zorvane::ui
