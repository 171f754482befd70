// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/ini_value.h"

#include <QString>
#include <QStringList>

#include <string_view>

namespace tessel {

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

/// The digit's value in a base up to 16; -1 for what is none.
int digitOf(char character, int base)
{
    int digit = -1;
    if (character >= '0' && character <= '9')
        digit = character - '0';
    else if (character >= 'a' && character <= 'f')
        digit = character - 'a' + 10;
    else if (character >= 'A' && character <= 'F')
        digit = character - 'A' + 10;
    return digit < base ? digit : -1;
}

class Reader
{
public:
    explicit Reader(QByteArrayView text) : m_left(text) { skipBlanks(); }

    void read()
    {
        constexpr std::string_view ends = ";\n\r";
        while (!m_left.isEmpty() && (m_isQuoted || ends.find(m_left.front()) == std::string_view::npos))
            readPart();
        endText();
    }

    [[nodiscard]] const QStringList& texts() const { return m_texts; }

private:
    char take()
    {
        const char character = m_left.front();
        m_left = m_left.sliced(1);
        return character;
    }

    void skipBlanks()
    {
        while (!m_left.isEmpty() && isBlank(m_left.front()))
            take();
    }

    void readPart()
    {
        switch (m_left.front()) {
        case '\\':
            take();
            readEscape();
            break;
        case '"':
            take();
            m_wasQuoted = true;
            m_isQuoted = !m_isQuoted;
            if (!m_isQuoted)
                skipBlanks();
            break;
        case ',':
            if (!m_isQuoted) {
                take();
                endText();
                skipBlanks();
                break;
            }
            [[fallthrough]];
        default:
            readPlain();
        }
    }

    void readPlain()
    {
        constexpr std::string_view special = "\\\",;\n\r";
        qsizetype length = 1;
        while (length < m_left.size() && special.find(m_left[length]) == std::string_view::npos)
            ++length;
        m_text += QString::fromUtf8(m_left.first(length));
        m_left = m_left.sliced(length);
    }

    void readEscape()
    {
        constexpr std::string_view names = "abfnrtv\"?'\\";
        constexpr std::string_view meanings = "\a\b\f\n\r\t\v\"?'\\";
        if (m_left.isEmpty())
            return;
        const char name = take();
        if (const std::size_t place = names.find(name); place != std::string_view::npos)
            keep(QLatin1Char(meanings[place]));
        else if (name == 'x')
            readNumber(0, 16, !m_left.isEmpty() && digitOf(m_left.front(), 16) >= 0);
        else if (const int digit = digitOf(name, 8); digit >= 0)
            readNumber(static_cast<char16_t>(digit), 8, true);
        else if ((name == '\n' || name == '\r') && !m_left.isEmpty() && m_left.front() != name &&
                 (m_left.front() == '\n' || m_left.front() == '\r'))
            take(); // a break of two characters is one
    }

    /// \param isThere whether there is a digit at all
    void readNumber(char16_t number, int base, bool isThere)
    {
        if (!isThere)
            return;
        for (; !m_left.isEmpty() && digitOf(m_left.front(), base) >= 0; take())
            number = static_cast<char16_t>(number * base + digitOf(m_left.front(), base));
        keep(QChar(number));
    }

    /// Adds a character that is no blank to be cut off, whichever it is.
    void keep(QChar character)
    {
        m_text += character;
        m_kept = m_text.size();
    }

    void endText()
    {
        if (!m_wasQuoted)
            while (m_text.size() > m_kept &&
                   (m_text.back() == QLatin1Char(' ') || m_text.back() == QLatin1Char('\t')))
                m_text.chop(1);
        m_texts.append(m_text);
        m_text.clear();
        m_kept = 0;
        m_wasQuoted = false;
    }

    QByteArrayView m_left;
    QString m_text;
    QStringList m_texts;
    qsizetype m_kept = 0; ///< so much of the text ends in no blanks to be cut off
    bool m_isQuoted = false;
    bool m_wasQuoted = false;
};

} // namespace

QVariant iniValue(QByteArrayView text)
{
    Reader reader(text);
    reader.read();
    if (reader.texts().size() > 1)
        return reader.texts();
    const QString& value = reader.texts().constFirst();
    const QLatin1String bytes("@ByteArray(");
    if (value.startsWith(bytes) && value.endsWith(QLatin1Char(')')))
        return value.mid(bytes.size()).chopped(1).toLatin1();
    // A text that begins so is written with two of them.
    return value.startsWith(QLatin1String("@@")) ? value.mid(1) : value;
}

} // namespace tessel
