// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/commands.h"

#include "base/identity.h"
#include "model/palette.h"
#include "platform/open_address.h"
#include "platform/sandbox.h"
#include "platform/software_centre.h"
#include "wallpaper/photos.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>
#include <QUrl>
#include <QUuid>

#include <chrono>
#include <memory>
#include <utility>

namespace tessel {

namespace {

struct Commands
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

/// How long a photo that nobody uses any more is kept: a look can be outside of the store too, in a PNG file
/// for example.
constexpr std::chrono::days photoKeeping{60};

void showApproval(LoginItem& login, Dialogs& dialogs, const std::function<void()>& done)
{
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

void showPhoto(Store& store, const QString& path)
{
    Look look = store.look();
    look.pattern = Pattern::image;
    look.imagePath = path.toStdString();
    store.changeLook(look);
}

void removeOldPhotos(const Store& store, Worker& worker, const QString& folder)
{
    const auto inUse = photosInUse(store);
    if (!inUse)
        return;
    const QDateTime limit = QDateTime::currentDateTimeUtc().addDays(-photoKeeping.count());
    worker.run([folder, inUse, limit] { removePhotos(folder, *inUse, limit); });
}

std::unique_ptr<QFileDialog> makeSaveDialog(const QString& name)
{
    auto dialog = std::make_unique<QFileDialog>();
    // From within a sandbox no dialog but the system's own sees the user's files. Everywhere else ours comes
    // to the front for certain.
    dialog->setOption(QFileDialog::DontUseNativeDialog, !isSandboxed());
    dialog->setWindowTitle(Commands::tr("Save PNG"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilter(Commands::tr("PNG pictures (*.png)"));
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    dialog->selectFile(name);
    return dialog;
}

void alertOfPng(Dialogs& dialogs, const QString& reason)
{
    dialogs.alert({Commands::tr("Could not save that PNG"), reason});
}

void saveChosen(Dialogs& dialogs, const Look& look, QSize size, QString file, const SavePicture& save)
{
    if (QFileInfo(file).suffix().compare(QStringLiteral("png"), Qt::CaseInsensitive) != 0) {
        file += QStringLiteral(".png");
        // Nobody has been asked whether this one may be replaced.
        if (QFileInfo::exists(file)) {
            alertOfPng(dialogs, Commands::tr("There is \"%1\" already. Choose another name.").arg(file));
            return;
        }
    }
    save(look, size, file, [guard = QPointer(&dialogs)](const std::optional<QString>& failure) {
        if (guard && failure)
            alertOfPng(*guard, *failure);
    });
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
        if (!name)
            return;
        std::vector<Preset> presets = store.presets();
        presets.push_back({QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString(),
                           name->toStdString(), look, motion});
        store.setPresets(std::move(presets));
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

void savePng(Dialogs& dialogs, const Look& look, QSize size, const SavePicture& save)
{
    std::unique_ptr<QFileDialog> dialog = makeSaveDialog(pngName(look, size));
    const auto ended = [&dialogs, shown = dialog.get(), look, size, save] {
        if (shown->result() == QDialog::Accepted && !shown->selectedFiles().isEmpty())
            saveChosen(dialogs, look, size, shown->selectedFiles().constFirst(), save);
    };
    // If it is open already, that one is what the user sees.
    static_cast<void>(dialogs.present(QStringLiteral("save-png"), std::move(dialog), ended));
}

QString pngName(const Look& look, QSize size)
{
    const std::string_view pattern = title(look.pattern);
    return QStringLiteral("Tessel Broth %1 %2x%3.png")
        .arg(QString::fromUtf8(pattern.data(), static_cast<qsizetype>(pattern.size())))
        .arg(size.width())
        .arg(size.height());
}

void usePhoto(Store& store, Dialogs& dialogs, Worker& worker, const QString& file, const QString& folder)
{
    const auto copied = [&store, &worker, guard = QPointer(&dialogs), folder](const Outcome<QString>& copy) {
        if (!guard)
            return;
        if (!copy.value) {
            guard->alert({Commands::tr("Could not use that photo"), copy.failure});
            return;
        }
        showPhoto(store, *copy.value);
        removeOldPhotos(store, worker, folder);
    };
    worker.run([file, folder] { return copyPhoto(file, folder); }, copied);
}

} // namespace tessel
