// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/edge_controller.h"

#include "edge/edge_panel.h"

#include <algorithm>

namespace tessel {

namespace {

std::optional<Screen> primaryScreen(const Screens& screens)
{
    const std::vector<Screen> all = screens.list();
    if (all.empty())
        return std::nullopt;
    const auto primary = std::ranges::find_if(all, &Screen::isPrimary);
    return primary == all.end() ? all.front() : *primary;
}

} // namespace

EdgeController::EdgeController(Store& store, WindowSystem& windows, MakeEdgePanel makePanel,
                               EdgeDelays delays)
    : m_store(store)
    , m_windows(windows)
    , m_makePanel(std::move(makePanel))
    , m_delays(delays)
{
    for (QTimer* timer : {&m_hoverWork, &m_collapseWork, &m_peekEnd})
        timer->setSingleShot(true);
    m_hoverWork.setInterval(m_delays.hover);
    m_collapseWork.setInterval(m_delays.collapse);
    connect(&m_hoverWork, &QTimer::timeout, this, [this] {
        m_hoverOpened.setRemainingTime(m_delays.click);
        setMode(Mode::quick);
    });
    connect(&m_collapseWork, &QTimer::timeout, this, &EdgeController::collapse);
    connect(&m_peekEnd, &QTimer::timeout, this, [this] { m_pointerEntered ? update() : collapse(); });
    m_state.setHandleHidden(m_store.handleHidden());
    connect(&m_store, &Store::edgeChanged, this, &EdgeController::place);
    connect(&m_store, &Store::handleHiddenChanged, this, [this] {
        m_state.setHandleHidden(m_store.handleHidden());
        setMode(Mode::handle);
    });
    connect(&m_windows.screens(), &Screens::changed, this, &EdgeController::place);
}

EdgeController::~EdgeController() = default;

void EdgeController::install()
{
    if (m_panel != nullptr)
        return;
    m_panel = m_makePanel(m_state);
    if (m_panel == nullptr)
        return;
    connect(m_panel.get(), &EdgePanel::pointerMoved, this, &EdgeController::follow);
    connect(m_panel.get(), &EdgePanel::pointerLeft, this, [this] {
        m_pointer.reset();
        update();
    });
    connect(m_panel.get(), &EdgePanel::pressed, this, &EdgeController::clickOutside);
    connect(m_panel.get(), &EdgePanel::handleClicked, this, &EdgeController::clickHandle);
    connect(m_panel.get(), &EdgePanel::menuRequested, this, &EdgeController::menuRequested);
    connect(m_panel.get(), &EdgePanel::closeRequested, this, [this] { setMode(Mode::handle); });
    place();
}

void EdgeController::uninstall()
{
    m_panel.reset();
}

/// On the screen that has the desktop's own panels. Without any screen it stays where it was.
void EdgeController::place()
{
    if (m_panel == nullptr)
        return;
    const std::optional<Screen> screen = primaryScreen(m_windows.screens());
    if (!screen)
        return;
    m_state.setLayout({screen->workArea.isEmpty() ? screen->frame : screen->workArea, m_store.edge()});
    m_panel->place(m_state.layout().panelFrame());
    update();
}

void EdgeController::setMode(Mode mode)
{
    m_hoverWork.stop();
    m_collapseWork.stop();
    if (m_state.mode() == Mode::open && mode != Mode::open)
        m_store.endEditing();
    if (mode != Mode::quick)
        m_peekEnd.stop();
    m_pointerEntered = false;
    const bool isOther = mode != m_state.mode();
    m_state.setMode(mode);
    m_state.setHovering(false);
    m_state.setQuickHover(std::nullopt);
    updateKeyboard();
    update();
    if (isOther)
        Q_EMIT modeChanged();
}

void EdgeController::clickHandle()
{
    if (m_state.mode() == Mode::handle)
        setMode(Mode::quick);
    else if (m_hoverOpened.hasExpired())
        setMode(Mode::open);
}

void EdgeController::peek(std::chrono::milliseconds duration)
{
    setMode(Mode::quick);
    m_peekEnd.start(duration);
}

void EdgeController::setHeld(bool held)
{
    m_isHeld = held;
    m_collapseWork.stop();
    update();
}

void EdgeController::setMenuOpen(bool isOpen)
{
    m_isMenuOpen = isOpen;
    updateKeyboard();
    setHeld(isOpen);
}

void EdgeController::updateKeyboard()
{
    if (m_panel != nullptr)
        m_panel->setKeyboardFocus(m_isMenuOpen || m_state.mode() == Mode::open ? KeyboardFocus::taken
                                                                               : KeyboardFocus::never);
}

QRect EdgeController::screenFrame(Mode mode) const
{
    const EdgeLayout& layout = m_state.layout();
    return layout.contentFrame(mode).translated(layout.panelFrame().topLeft());
}

bool EdgeController::isPeeking() const
{
    return m_peekEnd.isActive();
}

bool EdgeController::isInside() const
{
    return m_pointer && m_state.layout().activeFrame(m_state.mode()).contains(*m_pointer);
}

void EdgeController::follow(QPoint position)
{
    m_pointer = position;
    update();
}

/// Everything that depends on where the pointer is.
void EdgeController::update()
{
    const EdgeLayout& layout = m_state.layout();
    const Mode mode = m_state.mode();
    const bool isOff = mode == Mode::handle && m_state.isHandleHidden();
    const bool inside = !isOff && isInside();
    if (m_panel != nullptr)
        m_panel->setActive(isOff          ? QRect()
                           : m_isMenuOpen ? QRect({}, layout.panelFrame().size())
                                          : layout.activeFrame(mode));
    if (mode == Mode::handle) {
        if (m_state.hovering() != inside) {
            inside ? m_hoverWork.start() : m_hoverWork.stop();
            m_state.setHovering(inside);
        }
        return;
    }
    if (mode == Mode::open)
        return;
    m_state.setQuickHover(inside && !m_isMenuOpen ? layout.quickRow(m_pointer->y()) : std::nullopt);
    if (inside) {
        m_pointerEntered = true;
        m_collapseWork.stop();
    } else if (m_pointerEntered && !m_isHeld && !isPeeking() && !m_collapseWork.isActive()) {
        m_collapseWork.start();
    }
}

void EdgeController::clickOutside(QPoint position)
{
    if (m_state.mode() == Mode::handle)
        return;
    const bool isOutside = m_isMenuOpen ? !m_state.layout().panelFrame().contains(position)
                                        : !m_isHeld && !screenFrame(m_state.mode()).contains(position);
    if (isOutside)
        setMode(Mode::handle);
}

void EdgeController::collapse()
{
    if (m_state.mode() == Mode::quick && !isInside())
        setMode(Mode::handle);
}

} // namespace tessel
