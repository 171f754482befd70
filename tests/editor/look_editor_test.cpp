// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/worker.h"
#include "editor/look_editor.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "support/drawing_test.h"
#include "support/file_size_limit.h"
#include "support/surroundings.h"
#include "support/test_store.h"
#include "wallpaper/photos.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QUuid>
#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class LookEditorTest : public DrawingTest
{
protected:
    LookEditorTest()
    {
        QObject::connect(m_editor.get(), &LookEditor::told, m_editor.get(),
                         [this](const QString& title, const QString& text) {
                             m_told.emplace_back(title.toStdString(), text.toStdString());
                         });
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        EXPECT_TRUE(image.save(m_photo));
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_store.folder() + QLatin1Char('/') + QLatin1String(name);
    }

    [[nodiscard]] QString write(const char* name, const QByteArray& content) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    /// One of our own pictures.
    [[nodiscard]] QString writePicture(const Look& look, const std::string& json) const
    {
        QString file = path("bowl.png");
        writePng(*graphics.draw({.previous = look, .current = look, .width = 32, .height = 20}), json,
                 file.toStdString());
        return file;
    }

    void drop(const QString& file)
    {
        m_editor->takeDrop({QUrl(QStringLiteral("https://example.org/")), QUrl::fromLocalFile(file)}, {});
        EXPECT_TRUE(waitUntil([&] { return !m_editor->isReading(); }));
    }

    void paste(std::unique_ptr<QMimeData> data)
    {
        QGuiApplication::clipboard()->setMimeData(data.release());
        m_editor->paste();
        EXPECT_TRUE(waitUntil([&] { return !m_editor->isReading(); }));
    }

    [[nodiscard]] QStringList copies() const { return QDir(m_folder).entryList(QDir::Files | QDir::Hidden); }

    TestStore m_store;
    const QString m_photo = path("my photo.JPG");
    const QString m_folder = path("deep/Photos");
    std::function<void(const QString&)> m_choose; ///< what the open file dialog would call
    EditorServices m_services{.chooseImage = [this](const auto& chosen) { m_choose = chosen; },
                              .photoFolder = m_folder};
    Worker m_worker{QStringLiteral("files")};
    std::unique_ptr<LookEditor> m_editor = std::make_unique<LookEditor>(*m_store, m_worker, m_services);
    std::vector<std::pair<std::string, std::string>> m_told;
};

TEST_F(LookEditorTest, SaysWhetherTheDesktopShowsTheLook)
{
    int changes = 0;
    QObject::connect(m_editor.get(), &LookEditor::isOnDesktopChanged, m_editor.get(), [&] { ++changes; });
    std::vector<ContinueFromEditor> applied;
    QObject::connect(&*m_store, &Store::applied, m_editor.get(),
                     [&](ContinueFromEditor continuing) { applied.push_back(continuing); });
    EXPECT_EQ(m_editor->status(), QStringLiteral("Draft"));
    EXPECT_EQ(m_editor->applyTitle(), QStringLiteral("Apply to desktop"));
    m_editor->apply();
    EXPECT_EQ(m_editor->status(), QStringLiteral("On desktop"));
    EXPECT_EQ(m_editor->applyTitle(), QStringLiteral("Applied. Apply again"));
    EXPECT_TRUE(m_store->appliedMotion());
    m_services.playsWallpapers = false;
    EXPECT_EQ(m_editor->motionText(),
              QStringLiteral("On this desktop, too, it becomes a picture that stays still."));
    m_editor->setMotion(false);
    EXPECT_EQ(m_editor->status(), QStringLiteral("Draft"));
    EXPECT_EQ(m_editor->motionText(),
              QStringLiteral("Sets the frame in the preview as your desktop picture."));
    m_editor->apply();
    EXPECT_FALSE(m_store->appliedMotion());
    auto knobs = m_editor->colorKnobs();
    knobs.at(&knobs, 1)->adjust(+1);
    EXPECT_EQ(m_editor->status(), QStringLiteral("Draft"));
    EXPECT_EQ(changes, 4);
    EXPECT_THAT(applied, ElementsAre(ContinueFromEditor::yes, ContinueFromEditor::yes));
    m_editor->apply();
    EXPECT_THAT(m_store->desktopHistory(), SizeIs(1));
}

TEST_F(LookEditorTest, ShufflesADraftThatCanBeUndone)
{
    EXPECT_FALSE(m_editor->canUndo());
    Look photo;
    photo.imagePath = "/photo.jpg";
    m_store->setLook(photo);
    m_editor->shuffleDraft();
    EXPECT_EQ(m_store->look().imagePath, photo.imagePath);
    EXPECT_FALSE(m_store->desktop());
    const Look shuffled = m_store->look();
    m_editor->undo();
    EXPECT_EQ(m_store->look(), photo);
    EXPECT_TRUE(m_editor->canRedo());
    m_editor->redo();
    EXPECT_EQ(m_store->look(), shuffled);
}

TEST_F(LookEditorTest, TellsOnlyWhatHasChanged)
{
    QStringList told;
    const auto note = [&](void (LookEditor::*signal)(), const char* name) {
        QObject::connect(m_editor.get(), signal, m_editor.get(),
                         [&told, name] { told << QLatin1String(name); });
    };
    note(&LookEditor::titleChanged, "title");
    note(&LookEditor::photoChanged, "photo");
    note(&LookEditor::invertChanged, "invert");
    note(&LookEditor::isOnDesktopChanged, "status");
    auto knobs = m_editor->shapeKnobs();
    knobs.at(&knobs, 0)->toHighest();
    EXPECT_TRUE(told.isEmpty());
    m_editor->setInvert(true);
    m_editor->patterns()->choose(7);
    EXPECT_EQ(told,
              QStringList({QStringLiteral("invert"), QStringLiteral("photo"), QStringLiteral("title")}));
    EXPECT_TRUE(m_editor->needsPhoto());
    EXPECT_EQ(m_editor->title(), QStringLiteral("Image Ember"));
}

TEST_F(LookEditorTest, ShowsACopyOfTheChosenPhotoUnderAFreshName)
{
    m_editor->choosePhoto();
    m_choose(m_photo);
    EXPECT_TRUE(m_editor->isReading());
    ASSERT_TRUE(waitUntil([&] { return m_editor->showsPhoto(); }));
    EXPECT_FALSE(m_editor->needsPhoto());
    const QFileInfo copy(QString::fromStdString(m_store->look().imagePath.value_or("")));
    EXPECT_EQ(copy.path(), m_folder);
    EXPECT_FALSE(QUuid::fromString(copy.completeBaseName()).isNull());
    EXPECT_EQ(copy.suffix(), QStringLiteral("JPG"));
    EXPECT_EQ(QImage(copy.filePath()).size(), QSize(40, 30));
    // The old look can be gone back to, and the original may go.
    EXPECT_THAT(m_store->history(), SizeIs(1));
    EXPECT_TRUE(QFile::remove(m_photo));
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(LookEditorTest, RefusesWhatIsNoPicture)
{
    const QString text = write("recipe.jpg", "two cups of rice");
    for (const QString& file : {text, m_store.folder(), QStringLiteral("/nowhere/photo.png")}) {
        m_told.clear();
        drop(file);
        ASSERT_THAT(m_told, SizeIs(1));
        EXPECT_EQ(m_told[0].first, "Could not use that photo");
        EXPECT_THAT(m_told[0].second, HasSubstr(file.toStdString()));
    }
    EXPECT_EQ(m_store->look(), Look());
    EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(LookEditorTest, SaysWhereAPhotoCannotBeKept)
{
    // A file is where the folder should be.
    static_cast<void>(write("deep", {}));
    drop(m_photo);
    ASSERT_THAT(m_told, SizeIs(1));
    EXPECT_THAT(m_told[0].second, HasSubstr(m_folder.toStdString()));
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(LookEditorTest, LeavesNothingOfAPhotoBehindOnAFullDisk)
{
    const FileSizeLimit limit(100);
    ASSERT_GT(QFileInfo(m_photo).size(), 100);
    drop(m_photo);
    EXPECT_THAT(m_told, SizeIs(1));
    EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(LookEditorTest, EndsInPeaceWhileAFileIsRead)
{
    m_editor->choosePhoto();
    m_editor->takeDrop({QUrl::fromLocalFile(m_photo)}, {});
    // As in the model of the editor: the worker goes last, and tells nobody.
    m_editor.reset();
    m_choose(m_photo);
    m_worker.wait();
    EXPECT_EQ(copies().size(), 1);
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(LookEditorTest, TakesLooksAndPhotosThatAreDropped)
{
    const Look look = lookWithSeed(41);
    drop(write("look.json", "\n " + QByteArray::fromStdString(encodeLook(look))));
    EXPECT_EQ(m_store->look(), look);
    const Look other = lookWithSeed(42);
    drop(writePicture(other, encodeLook(other)));
    EXPECT_EQ(m_store->look(), other);
    EXPECT_THAT(m_store->history(), ElementsAre(Look(), look));
    EXPECT_THAT(copies(), IsEmpty());
    drop(m_photo);
    EXPECT_TRUE(m_editor->showsPhoto());
    EXPECT_THAT(m_told, IsEmpty());

    m_editor->takeDrop({}, QString::fromStdString(encodeLook(look)));
    EXPECT_EQ(m_store->look(), look);
    EXPECT_TRUE(m_editor->acceptsDrop({}, QStringLiteral(" {")));
    EXPECT_TRUE(m_editor->acceptsDrop({QUrl::fromLocalFile(m_photo)}, {}));
    EXPECT_FALSE(
        m_editor->acceptsDrop({QUrl(QStringLiteral("https://example.org/"))}, QStringLiteral("tea")));
}

TEST_F(LookEditorTest, TakesTextThatBeginsWithAByteOrderMark)
{
    const Look look = lookWithSeed(43);
    const QString text = QChar(QChar::ByteOrderMark) + QString::fromStdString(encodeLook(look));
    drop(write("look.json", text.toUtf8()));
    EXPECT_EQ(m_store->look(), look);
    m_store->setLook(Look());
    m_editor->takeDrop({}, text);
    EXPECT_EQ(m_store->look(), look);
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(LookEditorTest, DoesNotWaitForAPipeThatIsDropped)
{
    const QString pipe = path("pipe");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    drop(pipe);
    ASSERT_THAT(m_told, SizeIs(1));
    EXPECT_THAT(m_told[0].second, HasSubstr("not an ordinary file"));
}

TEST_F(LookEditorTest, SaysWhatIsWrongWithALook)
{
    const QByteArray broken = R"({"pattern": 99})";
    drop(write("look.json", broken));
    drop(writePicture({}, broken.toStdString()));
    m_editor->takeDrop({}, QString::fromUtf8(broken));
    ASSERT_THAT(m_told, SizeIs(3));
    for (const auto& [title, text] : m_told) {
        EXPECT_EQ(title, "Could not use that look");
        EXPECT_THAT(text, HasSubstr("pattern"));
    }
    QFile cut(writePicture({}, encodeLook({})));
    ASSERT_TRUE(cut.resize(cut.size() - 20));
    drop(cut.fileName());
    EXPECT_THAT(m_told.back().second, HasSubstr("bowl.png"));
    EXPECT_EQ(m_store->look(), Look());
}

TEST_F(LookEditorTest, CopiesAndPastes)
{
    m_store->setLook(lookWithSeed(9));
    m_editor->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), encodeLook(lookWithSeed(9)));
    m_store->setLook(Look());
    m_editor->paste();
    EXPECT_EQ(m_store->look(), lookWithSeed(9));

    const auto data = [] { return std::make_unique<QMimeData>(); };
    auto png = data();
    QFile picture(writePicture(lookWithSeed(5), encodeLook(lookWithSeed(5))));
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
    png->setData(QStringLiteral("image/png"), picture.readAll());
    paste(std::move(png));
    EXPECT_EQ(m_store->look(), lookWithSeed(5));

    auto file = data();
    file->setUrls({QUrl::fromLocalFile(path("bowl.png"))});
    m_store->setLook(Look());
    paste(std::move(file));
    EXPECT_EQ(m_store->look(), lookWithSeed(5));

    auto image = data();
    image->setImageData(QImage(m_photo));
    paste(std::move(image));
    EXPECT_TRUE(m_editor->showsPhoto());
    EXPECT_EQ(copies().size(), 1);
    EXPECT_THAT(m_told, IsEmpty());

    auto words = data();
    words->setText(QStringLiteral("two cups of rice"));
    paste(std::move(words));
    EXPECT_THAT(m_told, SizeIs(1));
}

TEST_F(LookEditorTest, KnowsThePhotosOfEveryLookThatCanComeBack)
{
    const auto withPhoto = [](const char* name) {
        Look look;
        look.imagePath = std::string("/photos/") + name;
        return look;
    };
    m_store->setPresets({{"6F9619FF-8B86-D011-B42D-00C04FC964FF", "", withPhoto("preset"), false}});
    m_store->applyToDesktop(withPhoto("oldest"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->applyToDesktop(withPhoto("old"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->applyToDesktop(withPhoto("desktop"), RecordHistory::yes, false, ContinueFromEditor::no);
    m_store->changeLook(withPhoto("before"));
    m_store->changeLook(withPhoto("edited"));
    m_store->changeLook(withPhoto("undone"));
    m_store->undo();
    const std::set<QString> all{QStringLiteral("preset"),  QStringLiteral("oldest"), QStringLiteral("old"),
                                QStringLiteral("desktop"), QStringLiteral("before"), QStringLiteral("edited"),
                                QStringLiteral("undone")};
    EXPECT_EQ(photosInUse(*m_store), all);
}

TEST_F(LookEditorTest, RemovesOnlyOldCopiesOutOfUse)
{
    const QString used = QFileInfo(copyPhoto(m_photo, m_folder)).fileName();
    const QString unused = QFileInfo(copyPhoto(m_photo, m_folder)).fileName();
    const QString foreign = QStringLiteral("holiday.jpg");
    ASSERT_TRUE(QFile::copy(m_photo, m_folder + QLatin1Char('/') + foreign));
    const QDateTime now = QDateTime::currentDateTimeUtc();
    removePhotos(m_folder, {used}, now.addDays(-1));
    EXPECT_EQ(copies().size(), 3);
    removePhotos(m_folder, {used}, now.addDays(1));
    EXPECT_EQ(copies().size(), 2);
    EXPECT_FALSE(copies().contains(unused));
}

} // namespace
} // namespace tessel
