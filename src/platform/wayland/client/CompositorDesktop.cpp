// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ForeignToplevels.h"
#include "KWinSyntheticKeyboard.h"
#include "PlasmaWindows.h"
#include "WaylandClipboard.h"
#include "WaylandConnection.h"
#include "WaylandFocusReturn.h"
#include "WaylandKeymap.h"
#include "WaylandModule.h"
#include "WaylandOverlaySurface.h"
#include "WaylandSeatKeyboard.h"
#include "WaylandSyntheticKeyboard.h"
#include "WaylandWindows.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 keyAtV = 9; // by its virtual key code

// The compositor that the environment names.
class CompositorDesktop final : public WaylandDesktop
{
public:
    explicit CompositorDesktop(std::unique_ptr<WaylandConnection> connection)
        : m_connection(std::move(connection))
    {}
    ~CompositorDesktop() override { m_connection->stop(); }
    CompositorDesktop(const CompositorDesktop &) = delete;
    CompositorDesktop &operator=(const CompositorDesktop &) = delete;

    [[nodiscard]] WaylandWays ways() const override
    {
        return {chosen<WaylandClipboard>("data-control"_L1),
                chosen<KWinSyntheticKeyboard>(
                    "fake-input"_L1, chosen<WaylandSyntheticKeyboard>("virtual-keyboard"_L1)),
                chosen<WaylandOverlaySurface>("layer-shell"_L1),
                ForeignToplevels::isOffered(*m_connection)    ? "foreign-toplevel"_L1
                    : PlasmaWindows::isOffered(*m_connection) ? "plasma-window-management"_L1
                                                              : "none"_L1};
    }

    [[nodiscard]] bool canPaste(bool hasOtherKeyboard) const override
    {
        return WaylandClipboard::isOffered(*m_connection)
            && (hasOtherKeyboard || WaylandSyntheticKeyboard::isOffered(*m_connection)
                || KWinSyntheticKeyboard::isOffered(*m_connection));
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
        if (!focused)
            focused = [this] { return m_windows.focusedApplication(); };
        if (KWinSyntheticKeyboard::isOffered(*m_connection))
            return std::make_unique<KWinSyntheticKeyboard>(
                *m_connection,
                [this] { return charactersTypedBy(keyAtV) == "v"_L1; },
                std::move(focused));
        if (!WaylandSyntheticKeyboard::isOffered(*m_connection))
            return {};
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
        return m_seatKeyboard.charactersTypedBy(virtualKeyCode);
    }

private:
    template<typename Part>
    [[nodiscard]] QLatin1StringView chosen(QLatin1StringView name,
                                           QLatin1StringView otherwise = "none"_L1) const
    {
        return Part::isOffered(*m_connection) ? name : otherwise;
    }

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandWindows m_windows{*m_connection};
    WaylandKeymap m_ownKeymap;
    WaylandSeatKeyboard m_seatKeyboard{*m_connection, m_ownKeymap};
};

} // namespace

// The library's entry point, by the name that WaylandModule looks for.
extern "C" __attribute__((visibility("default"))) WaylandDesktop *wrenfoldConnectToCompositor();

WaylandDesktop *wrenfoldConnectToCompositor()
{
    auto connection = WaylandConnection::open();
    return connection ? new CompositorDesktop(std::move(connection)) : nullptr;
}
