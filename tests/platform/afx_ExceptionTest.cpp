#include <afx.h>
#include <afxconv_.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <string>

namespace {

class Shape : public CObject
{
    DECLARE_DYNAMIC(Shape)
};

class Circle : public Shape
{
    DECLARE_DYNCREATE(Circle)
};

// An exception that tells when it is destroyed.
class Watched : public CException
{
public:
    explicit Watched(int& deleted) : m_deleted(deleted) {}
    ~Watched() override { ++m_deleted; }

private:
    int& m_deleted;
};

} // namespace

// clang-format off
IMPLEMENT_DYNAMIC(Shape, CObject)
IMPLEMENT_DYNCREATE(Circle, Shape)
// clang-format on

TEST(CObject, KnowsItsClass)
{
    Circle circle;
    Shape shape;
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Shape)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(shape.IsKindOf(RUNTIME_CLASS(Circle)));
    EXPECT_STREQ("Circle", circle.GetRuntimeClass()->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(Circle)), circle.GetRuntimeClass()->m_nObjectSize);
    CObject* made = RUNTIME_CLASS(Circle)->CreateObject();
    EXPECT_NE(nullptr, DYNAMIC_DOWNCAST(Circle, made));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(Circle, static_cast<CObject*>(&shape)));
    EXPECT_EQ(nullptr, RUNTIME_CLASS(Shape)->CreateObject());
    delete made;
}

TEST(CException, MacrosDeleteWhatTheyCatch)
{
    int deleted = 0;
    TRY
    {
        THROW(new Watched(deleted));
    }
    CATCH(CMemoryException, e)
    {
        ADD_FAILURE() << "wrong class";
    }
    AND_CATCH(Watched, e)
    {
        EXPECT_EQ(0, deleted);
    }
    END_CATCH
    EXPECT_EQ(1, deleted);
    TRY{TRY{THROW(new Watched(deleted));
}
CATCH_ALL(e)
{
    THROW_LAST();
}
END_CATCH_ALL
}
CATCH_ALL(e)
{
    EXPECT_EQ(1, deleted);
}
END_CATCH_ALL
EXPECT_EQ(2, deleted);
Watched onTheStack(deleted);
CException keeper(FALSE);
keeper.Delete();
}

TEST(CException, TextIsCutToTheBuffer)
{
    const struct {
        const char* label;
        void (*raise)();
        bool text;
    } kRows[] = {
        {"memory", [] { AfxThrowMemoryException(); }, true},
        {"not supported", [] { AfxThrowNotSupportedException(); }, true},
        {"argument", [] { AfxThrowInvalidArgException(); }, true},
        {"file", [] { AfxThrowFileException(CFileException::diskFull, -1, "name"); }, true},
        {"plain", [] { throw new CException; }, false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        try {
            row.raise();
            ADD_FAILURE();
        } catch (CException* e) {
            char whole[512], part[8];
            UINT help = 5;
            std::memset(part, '#', sizeof part);
            EXPECT_EQ(row.text, e->GetErrorMessage(whole, sizeof whole, &help) != FALSE);
            EXPECT_EQ(0U, help);
            EXPECT_EQ(row.text, e->GetErrorMessage(part, 5) != FALSE);
            EXPECT_EQ(std::string(whole).substr(0, 4), part);
            EXPECT_EQ('#', part[5]);
            EXPECT_FALSE(e->GetErrorMessage(nullptr, 0));
            e->Delete();
        }
    }
}

TEST(CFileException, TellsTheCauseOfAnError)
{
    const struct {
        LONG error;
        int cause;
    } kOs[] = {
        {ERROR_SUCCESS, CFileException::none},
        {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
        {ERROR_PATH_NOT_FOUND, CFileException::badPath},
        {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
        {ERROR_ACCESS_DENIED, CFileException::accessDenied},
        {ERROR_WRITE_PROTECT, CFileException::accessDenied},
        {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
        {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
        {ERROR_DISK_FULL, CFileException::diskFull},
        {ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
        {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
        {ERROR_WRITE_FAULT, CFileException::hardIO},
        {ERROR_HANDLE_EOF, CFileException::endOfFile},
        {99999, CFileException::generic},
    };
    for (const auto& row : kOs) {
        SCOPED_TRACE(row.error);
        EXPECT_EQ(row.cause, CFileException::OsErrorToException(row.error));
    }
    EXPECT_EQ(CFileException::diskFull, CFileException::ErrnoToException(ENOSPC));
    EXPECT_EQ(CFileException::fileNotFound, CFileException::ErrnoToException(ENOENT));
    EXPECT_NO_THROW(CFileException::ThrowOsError(ERROR_SUCCESS));
    try {
        CFileException::ThrowOsError(ERROR_DISK_FULL, "part.xlsx");
        ADD_FAILURE();
    } catch (CFileException* e) {
        EXPECT_EQ(CFileException::diskFull, e->m_cause);
        EXPECT_EQ(ERROR_DISK_FULL, e->m_lOsError);
        char text[512];
        e->GetErrorMessage(text, sizeof text);
        EXPECT_NE(nullptr, std::strstr(text, "part.xlsx"));
        e->Delete();
    }
}

TEST(Conversion, WrapsAsTheHomeRunTimeDoes)
{
    const struct {
        const char* text;
        int value;
    } kRows[] = {
        {nullptr, 0},
        {"", 0},
        {"x1", 0},
        {"12abc", 12},
        {" \t\r\n\v\f-7", -7},
        {"+7", 7},
        {"--7", 0},
        {"- 7", 0},
        {"0012", 12},
        {"2147483647", INT_MAX},
        {"2147483648", INT_MIN},
        {"-2147483648", INT_MIN},
        {"-2147483649", INT_MAX},
        {"4294967297", 1},
        {"99999999999", 1215752191},
        {"18446744073709551617", 1},
        {"100000000000000000000000000000000000000001", 1},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.text ? row.text : "null");
        EXPECT_EQ(row.value, AfxAtoI(row.text));
        EXPECT_EQ(row.value, static_cast<int>(AfxAtoL(row.text)));
    }
}
