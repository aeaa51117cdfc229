// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandClipboard.h"
#include "WaylandConnection.h"
#include "WaylandFocusReturn.h"
#include "WaylandKeymap.h"
#include "WaylandModule.h"
#include "WaylandOverlaySurface.h"
#include "WaylandSyntheticKeyboard.h"
#include "WaylandWindows.h"

using namespace Qt::StringLiterals;

namespace {

// The compositor that the environment names.
class CompositorDesktop final : public WaylandDesktop
{
public:
    explicit CompositorDesktop(std::unique_ptr<WaylandConnection> connection)
        : m_connection(std::move(connection))
    {}

    [[nodiscard]] QString summary() const override
    {
        return "clipboard="_L1 + chosen<WaylandClipboard>("data-control"_L1) + " keys="_L1
            + chosen<WaylandSyntheticKeyboard>("virtual-keyboard"_L1) + " overlay="_L1
            + chosen<WaylandOverlaySurface>("layer-shell"_L1) + " windows="_L1
            + chosen<WaylandWindows>("foreign-toplevel"_L1);
    }

    [[nodiscard]] bool canPaste() const override
    {
        return WaylandClipboard::isOffered(*m_connection)
            && WaylandSyntheticKeyboard::isOffered(*m_connection);
    }

    void start(MainQueue &mainQueue, std::function<void()> lost) override
    {
        m_connection->start(mainQueue, std::move(lost));
    }

    [[nodiscard]] std::unique_ptr<Clipboard> makeClipboard() override
    {
        if (!WaylandClipboard::isOffered(*m_connection))
            return {};
        return std::make_unique<WaylandClipboard>(*m_connection);
    }

    [[nodiscard]] std::unique_ptr<SyntheticKeyboard>
    makeKeyboard(FocusedApplication::Finder focused) override
    {
        if (!WaylandSyntheticKeyboard::isOffered(*m_connection))
            return {};
        if (!focused)
            focused = [this] { return m_windows.focusedApplication(); };
        return std::make_unique<WaylandSyntheticKeyboard>(
            *m_connection, m_ownKeymap, std::move(focused));
    }

    [[nodiscard]] std::unique_ptr<FocusReturn> makeFocusReturn() override
    {
        return std::make_unique<WaylandFocusReturn>(m_windows);
    }

    [[nodiscard]] std::unique_ptr<OverlaySurface> makeOverlay() override
    {
        if (!WaylandOverlaySurface::isOffered(*m_connection))
            return {};
        return std::make_unique<WaylandOverlaySurface>(*m_connection);
    }

    [[nodiscard]] QString charactersTypedBy(quint32 virtualKeyCode) const override
    {
        return m_ownKeymap.charactersTypedBy(virtualKeyCode);
    }

private:
    template<typename Part>
    [[nodiscard]] QLatin1StringView chosen(QLatin1StringView name) const
    {
        return Part::isOffered(*m_connection) ? name : "none"_L1;
    }

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandWindows m_windows{*m_connection};
    WaylandKeymap m_ownKeymap;
};

} // namespace

// The library's entry point, by the name that WaylandModule looks for.
extern "C" __attribute__((visibility("default"))) WaylandDesktop *wrenfoldConnectToCompositor();

WaylandDesktop *wrenfoldConnectToCompositor()
{
    auto connection = WaylandConnection::open();
    return connection ? new CompositorDesktop(std::move(connection)) : nullptr;
}
