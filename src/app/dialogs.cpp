// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/dialogs.h"

#include "app/status_icon.h"
#include "base/identity.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessel {

namespace {

constexpr QSize nameFieldSize(240, 24);
constexpr int textWidth = 380;
constexpr int alertIconSide = 66;
constexpr int margin = 14;

QString idOf(const Alert& alert)
{
    return alert.message + QLatin1Char('\n') + alert.informative;
}

QLabel* makeText(const QString& text, QDialog& dialog)
{
    auto* label = new QLabel(text, &dialog);
    // Texts may hold names of files, which are no markup.
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* makeHeading(const QString& text, QDialog& dialog)
{
    QLabel* label = makeText(text, dialog);
    label->setObjectName(QStringLiteral("message"));
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setFixedWidth(textWidth);
    return label;
}

/// A text from which an address or the name of a file can be copied.
QLabel* makeInformativeText(const QString& text, QDialog& dialog)
{
    QLabel* label = makeText(text, dialog);
    label->setObjectName(QStringLiteral("informative"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::StrongFocus);
    // Long names of files are not broken into lines.
    label->setFixedWidth(std::clamp(label->minimumSizeHint().width(), textWidth, 2 * textWidth));
    return label;
}

QLabel* makeIcon(QDialog& dialog)
{
    const double ratio = qApp->devicePixelRatio();
    const PanelTone tone = panelTone({}, dialog.palette().color(QPalette::Window));
    QPixmap pixmap = QPixmap::fromImage(
        panelImage(bowlMask(), static_cast<int>(std::lround(alertIconSide * ratio)), tone));
    pixmap.setDevicePixelRatio(ratio);
    auto* label = new QLabel(&dialog);
    label->setPixmap(pixmap);
    return label;
}

QDialogButtonBox* makeButtons(const Alert& alert, QDialog& dialog)
{
    auto* buttons = new QDialogButtonBox(&dialog);
    QPushButton* first = buttons->addButton(alert.button, QDialogButtonBox::AcceptRole);
    first->setDefault(true);
    first->setFocus();
    if (!alert.otherButton.isEmpty())
        buttons->addButton(alert.otherButton, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

/// \param field what is to be filled in, if anything
std::unique_ptr<QDialog> makeDialog(const Alert& alert, std::unique_ptr<QLineEdit> field = nullptr)
{
    auto dialog = std::make_unique<QDialog>();
    dialog->setWindowTitle(identity::name);
    dialog->setAccessibleDescription(idOf(alert));
    dialog->setAttribute(Qt::WA_ShowWithoutActivating, alert.takeFocus == TakeFocus::no);
    auto* layout = new QGridLayout(dialog.get());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(makeIcon(*dialog), 0, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    layout->addLayout(texts, 0, 1);
    texts->addWidget(makeHeading(alert.message, *dialog));
    if (!alert.informative.isEmpty())
        texts->addWidget(makeInformativeText(alert.informative, *dialog));
    if (field)
        texts->addWidget(field.release());
    texts->addStretch();
    layout->addWidget(makeButtons(alert, *dialog), 1, 0, 1, 2);
    return dialog;
}

std::unique_ptr<QLineEdit> makeNameField(const QString& initial, const QString& explanation)
{
    auto field = std::make_unique<QLineEdit>(initial);
    // Large letters need more.
    field->setFixedSize(nameFieldSize.expandedTo({0, field->minimumSizeHint().height()}));
    field->setAccessibleName(Dialogs::tr("Preset name"));
    field->setAccessibleDescription(explanation);
    field->selectAll();
    return field;
}

} // namespace

Dialogs::Dialogs(Focus* focus) : m_focus(focus) {}

Dialogs::~Dialogs()
{
    // Nobody is told any more.
    for (const Open& open : std::exchange(m_open, {})) {
        open.dialog->disconnect(this);
        delete open.dialog;
    }
}

void Dialogs::alert(const Alert& alert, const std::function<void(bool)>& done)
{
    std::unique_ptr<QDialog> dialog = makeDialog(alert);
    const auto ended = [shown = dialog.get(), done] { done(shown->result() == QDialog::Accepted); };
    if (!present(idOf(alert), std::move(dialog), ended))
        done(false);
}

void Dialogs::dismiss(const Alert& alert)
{
    const auto open = std::ranges::find(m_open, idOf(alert), &Open::id);
    if (open != m_open.end())
        open->dialog->reject();
}

void Dialogs::askPresetName(const QString& message, const QString& initial,
                            const std::function<void(std::optional<QString>)>& done)
{
    const Alert alert{message,
                      tr("A name for this shape, colours, dither and sliders. It stays in Presets, one click "
                         "from the menu bar."),
                      tr("Save"), tr("Cancel")};
    std::unique_ptr<QLineEdit> nameField = makeNameField(initial, alert.informative);
    QLineEdit* field = nameField.get();
    std::unique_ptr<QDialog> dialog = makeDialog(alert, std::move(nameField));
    field->setFocus();
    const auto ended = [shown = dialog.get(), field, done] {
        const QString name = field->text().trimmed();
        const bool isGiven = shown->result() == QDialog::Accepted && !name.isEmpty();
        done(isGiven ? std::optional(name) : std::nullopt);
    };
    if (!present(message, std::move(dialog), ended))
        done(std::nullopt);
}

bool Dialogs::present(const QString& id, std::unique_ptr<QDialog> dialog, std::function<void()> ended)
{
    const auto same = std::ranges::find(m_open, id, &Open::id);
    if (same != m_open.end()) {
        bringForward(*same->dialog);
        return false;
    }
    QDialog* shown = dialog.release();
    shown->setWindowFlag(Qt::WindowStaysOnTopHint);
    shown->setWindowModality(Qt::NonModal);
    const bool leavesFocus = shown->testAttribute(Qt::WA_ShowWithoutActivating);
    m_open.push_back({id, shown, shown->winId(), m_focus ? m_focus->current() : 0, leavesFocus});
    connect(shown, &QDialog::finished, this,
            [this, shown, ended = std::move(ended)] { close(*shown, ended); });
    addShortcuts(*shown);
    show(*shown);
    return true;
}

void Dialogs::closeAll()
{
    // What is told of their ends may open others.
    while (!m_open.empty())
        m_open.back().dialog->reject();
}

void Dialogs::addShortcuts(QDialog& dialog)
{
    auto* close = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), &dialog);
    connect(close, &QShortcut::activated, &dialog, &QDialog::reject);
    auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), &dialog);
    connect(quit, &QShortcut::activated, this, &Dialogs::quitRequested);
}

void Dialogs::show(QDialog& dialog)
{
    dialog.installEventFilter(this);
    dialog.windowHandle()->installEventFilter(this);
    dialog.show();
}

void Dialogs::bringForward(QDialog& dialog)
{
    dialog.raise();
    dialog.activateWindow();
    if (m_focus)
        m_focus->give(dialog.winId());
}

void Dialogs::close(QDialog& dialog, const std::function<void()>& ended)
{
    const auto entry = std::ranges::find(m_open, &dialog, &Open::dialog);
    const Open closed = *entry;
    m_open.erase(entry);
    handBackFocus(closed);
    dialog.deleteLater();
    ended();
}

void Dialogs::handBackFocus(const Open& closed)
{
    for (Open& open : m_open)
        if (open.focusBefore == closed.window)
            open.focusBefore = closed.focusBefore;
    if (closed.isUserElsewhere)
        return;
    if (!m_open.empty())
        bringForward(*m_open.back().dialog);
    else if (m_focus && closed.focusBefore != 0)
        m_focus->giveBack(closed.focusBefore);
}

bool Dialogs::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = qobject_cast<QWindow*>(watched);
    // It can get the focus as soon as it is to be seen. Asked before, some window managers put it on the last
    // workspace instead of all.
    if (event->type() == QEvent::Expose && window != nullptr && window->isExposed()) {
        window->removeEventFilter(this);
        prepareWindow(*window);
    }
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        noteActivation(watched, event->type() == QEvent::WindowActivate);
    return false;
}

void Dialogs::prepareWindow(QWindow& window)
{
    if (m_focus)
        m_focus->makePanel(window.winId());
    const auto open = std::ranges::find(m_open, window.winId(), &Open::window);
    if (open == m_open.end() || open->dialog->testAttribute(Qt::WA_ShowWithoutActivating))
        return;
    window.requestActivate();
    if (m_focus)
        m_focus->give(window.winId());
}

/// A dialog that is being hidden goes by itself, which is not the user's doing.
void Dialogs::noteActivation(const QObject* dialog, bool isActive)
{
    for (Open& open : m_open)
        if (open.dialog == dialog)
            open.isUserElsewhere = !isActive && !open.dialog->isHidden();
}

} // namespace tessel
