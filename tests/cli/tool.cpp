// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tool.h"

#include <QProcess>

#include <fstream>

namespace tessel {

Outcome Tool::run(const std::vector<std::string>& arguments, const std::string& input)
{
    QStringList list;
    for (const std::string& argument : arguments)
        list.append(QString::fromStdString(argument));
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TESSEL_TOOL), list);
    process.write(QByteArray::fromStdString(input));
    process.closeWriteChannel();
    process.waitForFinished(-1);
    Outcome outcome;
    if (process.exitStatus() == QProcess::NormalExit)
        outcome.exitCode = process.exitCode();
    outcome.out = process.readAllStandardOutput().toStdString();
    outcome.error = process.readAllStandardError().toStdString();
    return outcome;
}

std::string Tool::write(const std::string& name, const std::string& content)
{
    std::string file = path(name);
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    EXPECT_TRUE(stream.flush()) << file;
    return file;
}

} // namespace tessel
