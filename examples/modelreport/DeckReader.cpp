#include "DeckReader.h"

#include "DeckFile.h"
#include "Fields.h"
#include "Messages.h"
#include "Paths.h"

namespace {

constexpr int kDeepestInclude = 64;

// Options that have no value and may stand alone in a continued keyword line.
bool IsFlag(const CString& field)
{
    return field == "GENERATE" || field == "UNSORTED" || field == "INTERNAL";
}

// Whether `line` carries on the options of a keyword line that ended in a comma.
bool HasOptions(const CString& line)
{
    CStringArray fields;
    SplitFields(line, fields);
    return !fields.IsEmpty() && line[0] != '*' && (line.Find('=') >= 0 || IsFlag(Folded(fields[0])));
}

bool IsSkipped(const CString& line)
{
    return line.IsEmpty() || line.Left(2) == "**";
}

// Reads the next line, trimmed. False at the end of the file.
bool NextLine(CTextFile& text, CString& line)
{
    const bool found = text.ReadString(line) == 0;
    line.Trim();
    return found;
}

void LoadFile(CDeckFile& file, const CString& path, const DeckPlace& namedAt)
{
    try {
        if (!file.Load(path))
            ThrowDeckError(namedAt, path + " is larger than a deck may be (1 GB)");
    } catch (CFileException* e) {
        ThrowDeckError(namedAt, "cannot read " + path + ": " + MessageOf(e));
    }
}

} // namespace

void CDeckReader::Read(const CString& path)
{
    ReadFile(path, {path, 0});
    if (!m_anyCard)
        ThrowDeckError({path, 1}, "this is no deck: it has no line that starts with a keyword");
    m_builder.Finish();
}

void CDeckReader::ReadFile(const CString& path, const DeckPlace& namedAt)
{
    CDeckFile file;
    LoadFile(file, path, namedAt);
    m_open.Add(FullPath(path));
    CTextFile text;
    text.AttachFile(&file);
    DeckPlace place{path, 0};
    ReadLines(text, place);
    m_open.RemoveAt(m_open.GetUpperBound());
}

void CDeckReader::ReadLines(CTextFile& text, DeckPlace& place)
{
    CString line;
    for (;;) {
        place.line = text.GetLineNo();
        if (!NextLine(text, line))
            return;
        if (!IsSkipped(line))
            TakeLine(text, line, place);
    }
}

void CDeckReader::TakeLine(CTextFile& text, const CString& line, const DeckPlace& place)
{
    if (line[0] != '*')
        return m_builder.TakeLine(line, place);
    m_anyCard = true;
    m_card.Set(line, place);
    ReadContinuation(text, line);
    // An included file's lines may be data of the card that is open.
    if (m_card.Keyword() == "INCLUDE")
        Include();
    else
        m_builder.BeginCard(m_card);
}

void CDeckReader::ReadContinuation(CTextFile& text, const CString& firstLine)
{
    CString line(firstLine);
    while (line[line.GetLength() - 1] == ',') {
        do
            if (!NextLine(text, line))
                return;
        while (IsSkipped(line));
        if (!HasOptions(line)) {
            text.Backspace();
            return;
        }
        m_card.AddOptions(line);
    }
}

void CDeckReader::Include()
{
    const DeckPlace place = m_card.Place();
    const CString path = PathBeside(place.file, m_card.RequiredValue("INPUT"));
    const CString full = FullPath(path);
    for (int i = 0; i < m_open.GetSize(); ++i)
        if (m_open[i] == full)
            ThrowDeckError(place, path + " includes itself");
    if (m_open.GetSize() >= kDeepestInclude)
        ThrowDeckError(place, "files include each other too deeply");
    ReadFile(path, place);
}
