// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/dialogs.h"

#include "app/status_icon.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace tessel {

namespace {

constexpr int nameFieldWidth = 240;
constexpr int textWidth = 380;
constexpr int alertIconSide = 66;

/// The name dialog's parts; its window belongs to Dialogs.
struct NameDialog
{
    std::unique_ptr<QDialog> window = std::make_unique<QDialog>();
    QLineEdit* field = nullptr;
};

QLabel* makeText(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    return label;
}

void makeBold(QLabel& label)
{
    QFont bold = label.font();
    bold.setBold(true);
    label.setFont(bold);
}

QLabel* makeHeading(const QString& text)
{
    QLabel* label = makeText(text);
    makeBold(*label);
    return label;
}

QLineEdit* makeNameField(const QString& initial, const QString& explanation)
{
    auto* field = new QLineEdit(initial);
    field->setMinimumWidth(nameFieldWidth);
    field->setAccessibleName(QStringLiteral("Preset name"));
    field->setAccessibleDescription(explanation);
    field->selectAll();
    return field;
}

QDialogButtonBox* makeSaveButtons(QDialog& dialog)
{
    auto* buttons = new QDialogButtonBox;
    QPushButton* save = buttons->addButton(QStringLiteral("Save"), QDialogButtonBox::AcceptRole);
    save->setDefault(true);
    buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

NameDialog makeNameDialog(const QString& message, const QString& initial)
{
    const QString explanation =
        QStringLiteral("A name for this shape, colours, dither and sliders. It stays in Presets, one click "
                       "from the menu bar.");
    NameDialog dialog;
    dialog.window->setWindowTitle(message);
    dialog.field = makeNameField(initial, explanation);
    auto* layout = new QVBoxLayout(dialog.window.get());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeHeading(message));
    layout->addWidget(makeText(explanation));
    layout->addWidget(dialog.field);
    layout->addWidget(makeSaveButtons(*dialog.window));
    dialog.field->setFocus();
    return dialog;
}

std::unique_ptr<QMessageBox> makeAlertBox(const Alert& alert)
{
    auto box = std::make_unique<QMessageBox>();
    const PanelTone tone = panelTone({}, box->palette().color(QPalette::Window));
    box->setIconPixmap(QPixmap::fromImage(panelImage(bowlMask(), alertIconSide, tone)));
    box->setWindowTitle(QStringLiteral("Tessel Broth"));
    box->setText(alert.message);
    box->setInformativeText(alert.informative);
    for (QLabel* label : box->findChildren<QLabel*>()) {
        // Texts may hold names of files, which are no markup.
        label->setTextFormat(Qt::PlainText);
        if (label->text() == alert.message)
            makeBold(*label);
        else if (label->text() == alert.informative)
            label->setMinimumWidth(textWidth);
    }
    return box;
}

} // namespace

Dialogs::Dialogs(std::unique_ptr<Focus> focus) : m_focus(std::move(focus)) {}

Dialogs::~Dialogs()
{
    // Nobody is told any more.
    for (const auto& [id, open] : std::exchange(m_open, {})) {
        open.dialog->disconnect(this);
        delete open.dialog;
    }
}

void Dialogs::alert(const Alert& alert, const std::function<void(bool)>& done)
{
    std::unique_ptr<QMessageBox> box = makeAlertBox(alert);
    const QPushButton* first = box->addButton(alert.button, QMessageBox::AcceptRole);
    box->setDefaultButton(qobject_cast<QPushButton*>(box->buttons().constFirst()));
    if (!alert.otherButton.isEmpty())
        box->setEscapeButton(box->addButton(alert.otherButton, QMessageBox::RejectRole));
    const QMessageBox* shown = box.get();
    const auto ended = [shown, first, done] { done(shown->clickedButton() == first); };
    if (!present(alert.message + QLatin1Char('\n') + alert.informative, std::move(box), ended))
        done(false);
}

void Dialogs::askPresetName(const QString& message, const QString& initial,
                            const std::function<void(std::optional<QString>)>& done)
{
    NameDialog dialog = makeNameDialog(message, initial);
    const auto ended = [window = dialog.window.get(), field = dialog.field, done] {
        const QString name = field->text().trimmed();
        const bool isGiven = window->result() == QDialog::Accepted && !name.isEmpty();
        done(isGiven ? std::optional(name) : std::nullopt);
    };
    if (!present(message, std::move(dialog.window), ended))
        done(std::nullopt);
}

bool Dialogs::present(const QString& id, std::unique_ptr<QDialog> dialog, std::function<void()> ended)
{
    const auto same = m_open.find(id);
    if (same != m_open.end()) {
        bringForward(*same->second.dialog);
        return false;
    }
    QDialog* shown = dialog.release();
    m_open[id] = {shown, m_focus ? m_focus->current() : 0};
    connect(shown, &QDialog::finished, this, [this, id, ended = std::move(ended)] {
        const Open open = m_open.extract(id).mapped();
        handBackFocus(open);
        open.dialog->deleteLater();
        ended();
    });
    addShortcuts(*shown);
    show(*shown);
    return true;
}

void Dialogs::closeAll()
{
    // What is told of their ends may open others.
    while (!m_open.empty())
        m_open.begin()->second.dialog->reject();
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
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    dialog.winId(); // makes the window, whose events are wanted
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

void Dialogs::handBackFocus(const Open& open)
{
    if (m_focus && open.focusBefore != 0 && !open.isLeftByUser)
        m_focus->give(open.focusBefore);
}

bool Dialogs::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = qobject_cast<QWindow*>(watched);
    // It can get the focus as soon as it is to be seen. Asked before, some window managers put it on the last
    // workspace instead of all.
    if (event->type() == QEvent::Expose && window != nullptr && window->isExposed()) {
        window->removeEventFilter(this);
        window->requestActivate();
        if (m_focus) {
            m_focus->showEverywhere(window->winId());
            m_focus->give(window->winId());
        }
    }
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        noteActivation(watched, event->type() == QEvent::WindowActivate);
    return false;
}

/// A dialog that is being hidden goes by itself, which is not the user's doing.
void Dialogs::noteActivation(const QObject* dialog, bool isActive)
{
    for (auto& [id, open] : m_open) {
        if (open.dialog == dialog)
            open.isLeftByUser = !isActive && !open.dialog->isHidden();
    }
}

} // namespace tessel
