// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/requests.h"

#include "editor/look_reader.h"
#include "model/look_json.h"

#include <utility>

namespace tessel {

namespace {

using Refusal = std::optional<QString>;

const auto setLookName = QStringLiteral("set-look");
const auto setMotionName = QStringLiteral("set-motion");

/// The most of a name that is said again.
constexpr qsizetype longestName = 100;

Refusal setLook(Store& store, const QVariant& parameter)
{
    if (parameter.userType() != QMetaType::QString)
        return QStringLiteral("\"%1\" takes a look as JSON, a string.").arg(setLookName);
    const Found found = readLookJson(parameter.toString().toUtf8());
    if (const auto* none = std::get_if<NoLook>(&found))
        return none->reason;
    const Look& look = std::get<Look>(found);
    store.changeLook(look);
    store.applyToDesktop(look, RecordHistory::yes, store.desktopMotion(), ContinueFromEditor::no);
    return std::nullopt;
}

Refusal setMotion(Store& store, const QVariant& parameter)
{
    if (parameter.userType() != QMetaType::Bool)
        return QStringLiteral("\"%1\" takes whether the wallpaper is animated, a Boolean.")
            .arg(setMotionName);
    store.setDesktopMotion(parameter.toBool());
    return std::nullopt;
}

Refusal answer(Store& store, const std::function<void(Action)>& perform, const QString& name,
               const QVariant& parameter)
{
    if (name == setLookName)
        return setLook(store, parameter);
    if (name == setMotionName)
        return setMotion(store, parameter);
    const std::optional<Action> action = actionNamed(name);
    if (!action)
        return QStringLiteral("There is no action \"%1\". The actions are %2.")
            .arg(name.left(longestName),
                 (actionNames() << setLookName << setMotionName).join(QStringLiteral(", ")));
    if (parameter.isValid())
        return QStringLiteral("\"%1\" takes no parameter.").arg(name);
    if (*action == Action::quit) // whoever asks is answered before
        QMetaObject::invokeMethod(
            &store, [perform] { perform(Action::quit); }, Qt::QueuedConnection);
    else
        perform(*action);
    return std::nullopt;
}

ShownWallpaper shownWallpaper(const Store& store)
{
    const QString look = store.desktop() ? QString::fromStdString(encodeLook(*store.desktop())) : QString();
    return {.look = look, .isAnimated = store.desktopMotion()};
}

} // namespace

InstanceAnswers requestAnswers(Store& store, std::function<void(Action)> perform)
{
    return {.perform =
                [&store, perform = std::move(perform)](const QString& name, const QVariant& parameter) {
                    return answer(store, perform, name, parameter);
                },
            .wallpaper = [&store] { return shownWallpaper(store); }};
}

} // namespace tessel
