#include "spreadsheet/model/FormulaReferences.h"

#include <algorithm>

namespace zek::office {
namespace {

bool IsWordCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.' || c == '$' || c == '\\' || static_cast<unsigned char>(c) >= 0x80;
}

class Rewriter
{
public:
    Rewriter(std::string_view formula, const std::function<Rewrite(FormulaReference&)>& rewrite)
        : m_next(formula.data()), m_end(formula.data() + formula.size()), m_rewrite(rewrite)
    {
    }

    std::string Run()
    {
        while (m_next != m_end)
            Step();
        return std::move(m_result);
    }

private:
    void Step()
    {
        if (*m_next == '"')
            CopyUntil(QuotedEnd('"'));
        else if (*m_next == '\'' || IsWordCharacter(*m_next))
            Word();
        else
            CopyUntil(m_next + 1);
    }

    // Behind the closing quote; a doubled quote stands for itself.
    const char* QuotedEnd(char quote) const
    {
        const char* p = m_next + 1;
        while (p != m_end && (*p != quote || (p + 1 != m_end && p[1] == quote)))
            p += *p == quote ? 2 : 1;
        return p == m_end ? p : p + 1;
    }

    const char* WordEnd(const char* p) const { return std::find_if_not(p, m_end, IsWordCharacter); }

    void Word()
    {
        FormulaReference reference;
        const char* const start = m_next;
        const char* p = *start == '\'' ? QuotedEnd('\'') : WordEnd(start);
        if (p != m_end && *p == '!') {
            reference.hasSheet = true;
            reference.sheet = Unquoted(start, p);
            p = m_next = p + 1;
        } else {
            p = start;
        }
        const char* const end = ParseArea(p, m_end, reference.area);
        const bool isReference =
            end && (end == m_end || (!IsWordCharacter(*end) && *end != '(' && *end != '!'));
        if (isReference)
            return Put(reference, start, end);
        m_next = start;
        CopyUntil(std::max(WordEnd(p), p == start && *start == '\'' ? QuotedEnd('\'') : p));
    }

    static std::string Unquoted(const char* start, const char* end)
    {
        std::string name;
        if (*start != '\'')
            return {start, end};
        for (const char* p = start + 1; p + 1 < end; ++p) {
            name += *p;
            p += *p == '\'' ? 1 : 0;
        }
        return name;
    }

    void Put(FormulaReference& reference, const char* start, const char* end)
    {
        const Rewrite what = m_rewrite(reference);
        m_next = start;
        if (what == Rewrite::Keep)
            return CopyUntil(end);
        if (what == Rewrite::Lose)
            m_result += "#REF!";
        else
            m_result += (reference.hasSheet ? SheetPrefix(reference.sheet) : "") + AreaText(reference.area);
        m_next = end;
    }

    void CopyUntil(const char* end)
    {
        m_result.append(m_next, end);
        m_next = end;
    }

    const char* m_next;
    const char* m_end;
    const std::function<Rewrite(FormulaReference&)>& m_rewrite;
    std::string m_result;
};

bool MoveReference(CellReference& cell, AreaKind kind, std::int64_t rows, std::int64_t columns)
{
    const std::int64_t row = cell.row + (cell.rowAbsolute || kind == AreaKind::Columns ? 0 : rows);
    const std::int64_t column = cell.column + (cell.columnAbsolute || kind == AreaKind::Rows ? 0 : columns);
    cell.row = static_cast<std::uint32_t>(row);
    cell.column = static_cast<std::uint32_t>(column);
    return row >= 0 && row < kRowCount && column >= 0 && column < kColumnCount;
}

} // namespace

std::string RewriteReferences(std::string_view formula,
                              const std::function<Rewrite(FormulaReference&)>& rewrite)
{
    return Rewriter(formula, rewrite).Run();
}

std::string MovedFormula(std::string_view formula, std::int64_t rows, std::int64_t columns)
{
    return RewriteReferences(formula, [=](FormulaReference& reference) {
        const bool fits = MoveReference(reference.area.first, reference.area.kind, rows, columns) &&
                          MoveReference(reference.area.last, reference.area.kind, rows, columns);
        return fits ? Rewrite::Change : Rewrite::Lose;
    });
}

bool ShiftSpan(std::uint32_t& first, std::uint32_t& last, std::uint32_t at, std::uint32_t count, bool insert,
               std::uint32_t limit)
{
    if (first == 0 && last + 1 == limit)
        return true; // whole columns stay whole columns
    if (insert) {
        if (last >= at && last + count >= limit)
            return false;
        first += first >= at ? count : 0;
        last += last >= at ? count : 0;
        return true;
    }
    const std::uint32_t behind = at + count;
    const std::uint32_t newFirst = first < at ? first : first < behind ? at : first - count;
    const std::uint32_t newEnd = last < at ? last + 1 : last < behind ? at : last - count + 1;
    if (newFirst >= newEnd)
        return false;
    first = newFirst;
    last = newEnd - 1;
    return true;
}

} // namespace zek::office
