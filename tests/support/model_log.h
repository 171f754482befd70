// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>

#include <string>
#include <utility>
#include <vector>

namespace tessel {

/// What a list model tells its views, such as "2-3 selected" (changed), "+4-4" (new) or "-0-1" (gone).
class ModelLog
{
public:
    explicit ModelLog(QAbstractItemModel& model)
    {
        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::dataChanged, &m_receiver,
                         [this, &model](const auto& first, const auto& last, const QList<int>& roles) {
                             std::string text = rows(first.row(), last.row());
                             for (const int role : roles)
                                 text += ' ' + model.roleNames()[role].toStdString();
                             m_entries.push_back(text);
                         });
        QObject::connect(&model, &Model::rowsInserted, &m_receiver,
                         [this](const auto& /*parent*/, int first, int last) {
                             m_entries.push_back('+' + rows(first, last));
                         });
        QObject::connect(&model, &Model::rowsRemoved, &m_receiver,
                         [this](const auto& /*parent*/, int first, int last) {
                             m_entries.push_back('-' + rows(first, last));
                         });
        QObject::connect(&model, &Model::modelReset, &m_receiver,
                         [this] { m_entries.emplace_back("reset"); });
    }

    /// What came since the last time.
    std::vector<std::string> take() { return std::exchange(m_entries, {}); }

private:
    static std::string rows(int first, int last)
    {
        return std::to_string(first) + '-' + std::to_string(last);
    }

    QObject m_receiver;
    std::vector<std::string> m_entries;
};

} // namespace tessel
