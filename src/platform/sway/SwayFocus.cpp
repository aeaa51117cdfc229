// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwayFocus.h"

#include "SwaySocket.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// The node of the tree that has the focus; empty when none has it.
QJsonObject focusedNode(const QJsonObject &node)
{
    if (node["focused"_L1].toBool())
        return node;
    for (const auto &kind : {"nodes"_L1, "floating_nodes"_L1}) {
        const auto children = node[kind].toArray();
        for (const auto &child : children)
            if (auto found = focusedNode(child.toObject()); !found.isEmpty())
                return found;
    }
    return {};
}

} // namespace

FocusedApplication focusedApplicationInSway()
{
    const auto tree = SwaySocket::ask(SwayMessage::GetTree);
    const auto node = focusedNode(tree.object());
    const auto ofX = node["window_properties"_L1].toObject();
    FocusedApplication application;
    application.isKeyboardHeld = !tree.isNull() && node.isEmpty();
    for (const auto &name : {node["app_id"_L1], ofX["instance"_L1], ofX["class"_L1]})
        if (name.isString())
            application.names << name.toString().toUtf8();
    return application;
}
