// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "shaders/shaders.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessel::shaders {
namespace {

class EveryShader : public testing::TestWithParam<Dialect>
{
protected:
    QTemporaryDir folder;
    QStringList files;

    void add(const Source& source)
    {
        write(source.vertex, QStringLiteral("vert"));
        write(source.fragment, QStringLiteral("frag"));
    }

private:
    void write(const std::string& text, const QString& extension)
    {
        files.append(folder.filePath(QStringLiteral("%1.%2").arg(files.size()).arg(extension)));
        QFile file(files.back());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text.data(), static_cast<qint64>(text.size())),
                  static_cast<qint64>(text.size()));
    }
};

TEST_P(EveryShader, IsValid)
{
    const QString validator = QStandardPaths::findExecutable(QStringLiteral("glslangValidator"));
    ASSERT_FALSE(validator.isEmpty()) << "glslangValidator is missing (on Debian: glslang-tools)";
    for (const Pattern pattern : allPatterns()) {
        add(field(pattern, FieldPart::whole, GetParam()));
        add(field(pattern, FieldPart::tiles, GetParam()));
        add(direct(pattern, Dither::smooth, GetParam()));
    }
    for (const Dither dither : allDithers()) {
        add(composite(dither, GetParam()));
        if (kind(dither) == DitherKind::screen)
            add(map(dither, GetParam()));
        add(direct(Pattern::flow, dither, GetParam()));
        if (kind(dither) != DitherKind::continuous)
            add(inks(dither, GetParam()));
    }
    add(ramp(GetParam()));
    QProcess process;
    process.start(validator, files);
    ASSERT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardOutput().toStdString();
}

std::string dialectName(const testing::TestParamInfo<Dialect>& info)
{
    return info.param == Dialect::glsl330 ? "Glsl330" : "GlslEs300";
}

INSTANTIATE_TEST_SUITE_P(Dialects, EveryShader, testing::Values(Dialect::glsl330, Dialect::glslEs300),
                         dialectName);

} // namespace
} // namespace tessel::shaders
