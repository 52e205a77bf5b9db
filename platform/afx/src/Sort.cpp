#include <afxsort_.h>

#include <cstring>
#include <memory>

namespace {

using Comparison = int (*)(const void*, const void*);

// Elements of WIDTH bytes; 0: of a width that is known at run time only.
template <std::size_t WIDTH>
class Elements
{
public:
    Elements(std::size_t width, Comparison compare) : m_width(width), m_compare(compare) {}

    // `half` has room for half of the elements.
    void MergeSort(char* first, std::size_t count, char* half) const
    {
        if (count < 2)
            return;
        const std::size_t left = count / 2;
        char* const middle = first + left * Width();
        MergeSort(first, left, half);
        MergeSort(middle, count - left, half);
        Merge(first, middle, first + count * Width(), half);
    }

private:
    std::size_t Width() const { return WIDTH != 0 ? WIDTH : m_width; }

    void Merge(char* out, char* right, const char* end, char* half) const
    {
        const char* left = half;
        std::memcpy(half, out, static_cast<std::size_t>(right - out));
        const char* const leftEnd = half + (right - out);
        while (left != leftEnd && right != end) {
            if (m_compare(left, right) <= 0) {
                std::memcpy(out, left, Width());
                left += Width();
            } else {
                std::memcpy(out, right, Width());
                right += Width();
            }
            out += Width();
        }
        std::memcpy(out, left, static_cast<std::size_t>(leftEnd - left));
    }

    std::size_t m_width;
    Comparison m_compare;
};

template <std::size_t WIDTH>
void Sort(char* base, std::size_t count, std::size_t width, Comparison compare)
{
    const std::unique_ptr<char[]> half(new char[count / 2 * width]);
    Elements<WIDTH>(width, compare).MergeSort(base, count, half.get());
}

} // namespace

void AFXAPI AfxQSort(void* base, std::size_t count, std::size_t width, Comparison compare)
{
    if (count < 2 || width == 0)
        return;
    char* const first = static_cast<char*>(base);
    switch (width) {
    case 4:
        return Sort<4>(first, count, width, compare);
    case 8:
        return Sort<8>(first, count, width, compare);
    default:
        return Sort<0>(first, count, width, compare);
    }
}
