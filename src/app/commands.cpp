// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/commands.h"

#include "base/identity.h"
#include "editor/preset_list.h"
#include "model/palette.h"
#include "platform/open_address.h"
#include "platform/sandbox.h"
#include "platform/software_centre.h"
#include "wallpaper/photos.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>
#include <QUrl>

#include <memory>
#include <utility>

namespace tessel {

namespace {

struct Commands
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

void showApproval(LoginItem& login, Dialogs& dialogs, const std::function<void()>& done)
{
    //: login items: the programs that start at login
    const Alert alert{Commands::tr("Allow Tessel Broth in Login Items"), approvalText(),
                      Commands::tr("Open Login Items"), Commands::tr("Not Now")};
    dialogs.alert(alert, [&login, &dialogs, done](bool open) {
        if (open)
            login.openSettings(&dialogs, [&dialogs](const std::optional<QString>& failure) {
                if (failure)
                    dialogs.alert({Commands::tr("Could not open the login items"), *failure});
            });
        done();
    });
}

/// Where pictures are, in a home that has such a folder.
QString picturesFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

std::unique_ptr<QFileDialog> makeFileDialog(const QString& title)
{
    auto dialog = std::make_unique<QFileDialog>();
    // From within a sandbox no dialog but the system's own sees the user's files. Everywhere else ours comes
    // to the front for certain.
    dialog->setOption(QFileDialog::DontUseNativeDialog, !isSandboxed());
    dialog->setWindowTitle(title);
    dialog->setDirectory(picturesFolder());
    return dialog;
}

std::unique_ptr<QFileDialog> makeSaveDialog(const QString& name)
{
    auto dialog = makeFileDialog(Commands::tr("Save PNG"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilter(Commands::tr("PNG pictures (*.png)"));
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->selectFile(name);
    return dialog;
}

/// "*.jpeg *.jpg *.png" and whatever else can be read.
QString picturePatterns()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    return patterns.join(QLatin1Char(' '));
}

std::unique_ptr<QFileDialog> makeImageDialog()
{
    auto dialog = makeFileDialog(Commands::tr("Choose a Photo"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(Commands::tr("Pictures (%1)").arg(picturePatterns()));
    return dialog;
}

} // namespace

void setLaunchAtLogin(LoginItem& login, Dialogs& dialogs, bool on, const std::function<void(bool)>& done)
{
    const auto finish = [&login, on, done] { done((login.status() == LoginItem::Status::enabled) == on); };
    const auto ended = [&login, &dialogs, on, finish](const std::optional<QString>& failure) {
        const QString message = on ? Commands::tr("Could not turn on Launch at Login")
                                   : Commands::tr("Could not turn off Launch at Login");
        if (on && login.status() == LoginItem::Status::requiresApproval)
            showApproval(login, dialogs, finish);
        else if (failure)
            dialogs.alert({message, *failure}, [finish](bool) { finish(); });
        else
            finish();
    };
    if (on)
        login.registerItem(ended);
    else
        login.unregisterItem(ended);
}

void saveAsPreset(Store& store, Dialogs& dialogs)
{
    if (!store.desktop())
        return;
    const QString initial = QString::fromStdString(displayTitle(*store.desktop()));
    // What was on the desktop when the question came up, not what a fresh bowl may have put there since.
    const auto add = [&store, look = *store.desktop(),
                      motion = store.appliedMotion()](const std::optional<QString>& name) {
        if (name)
            addPreset(store, *name, look, motion);
    };
    dialogs.askPresetName(Commands::tr("Save as preset"), initial, add);
}

void checkForUpdates(Dialogs& dialogs)
{
    openSoftwareCentre(identity::id, &dialogs, [&dialogs](bool isTaken) {
        if (isTaken)
            return;
        dialogs.alert(
            {Commands::tr("Updates come with your system"),
             Commands::tr("The software centre or package manager of your system keeps Tessel Broth "
                          "up to date. Look for updates there.")});
    });
}

void openWebPage(const QString& address, Dialogs& dialogs)
{
    openAddress(QUrl(address), &dialogs, [&dialogs, address](bool isTaken) {
        if (!isTaken)
            dialogs.alert(
                {Commands::tr("Could not open the web page"),
                 Commands::tr("No browser has taken it. You can copy the address:\n%1").arg(address)});
    });
}

EditorServices editorServices(Dialogs& dialogs, bool playsWallpapers,
                              const std::function<void(bool isOpen)>& opened)
{
    // If one of that id is open already, that one is what the user sees.
    const auto present = [&dialogs, opened](const QString& id, std::unique_ptr<QFileDialog> dialog,
                                            const std::function<void(const QString& file)>& chosen) {
        const auto ended = [shown = dialog.get(), chosen, opened] {
            opened(false);
            if (shown->result() == QDialog::Accepted && !shown->selectedFiles().isEmpty())
                chosen(shown->selectedFiles().constFirst());
        };
        if (dialogs.present(id, std::move(dialog), ended))
            opened(true);
    };
    return {.chooseImage =
                [present](const auto& chosen) {
                    present(QStringLiteral("choose-image"), makeImageDialog(), chosen);
                },
            .choosePngFile =
                [present](const QString& name, const auto& chosen) {
                    present(QStringLiteral("save-png"), makeSaveDialog(name), chosen);
                },
            .playsWallpapers = playsWallpapers,
            .photoFolder = defaultPhotoFolder()};
}

} // namespace tessel
