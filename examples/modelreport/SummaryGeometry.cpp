#include "SummaryGeometry.h"

#include "NumberFormat.h"
#include "ReportTable.h"

namespace {

// Numbers along X, Y and Z, in formats that the rows of a column share.
class CPointTable
{
public:
    CPointTable(CReportSheet& sheet, const Field* fields, int fieldCount) : m_table(sheet, fields, fieldCount)
    {
    }

    void Add(LPCSTR title, const double* point)
    {
        m_rows.Add({title, {point[0], point[1], point[2]}});
        for (int axis = 0; axis < 3; ++axis)
            m_magnitudes[axis].Add(point[axis]);
    }
    bool IsEmpty() const { return m_rows.IsEmpty() != 0; }

    void Write()
    {
        m_table.Headings();
        m_table.Begin(m_rows.GetSize());
        for (int i = 0; i < m_rows.GetSize(); ++i) {
            m_table.Text(0, m_rows[i].title);
            for (int axis = 0; axis < 3; ++axis)
                m_table.FormattedNumber(axis + 1, m_rows[i].at[axis], m_magnitudes[axis].Format());
            m_table.NextRow();
        }
        m_table.End();
    }

private:
    struct Row {
        LPCSTR title;
        double at[3];
    };

    CReportTable m_table;
    CArray<Row, const Row&> m_rows;
    CMagnitudes m_magnitudes[3];
};

constexpr Field kCentroidFields[] = {
    {"Centroid of", 0, 0, kTextField},
    {"X", 1, 1, kNumberField},
    {"Y", 2, 2, kNumberField},
    {"Z", 3, 4, kNumberField},
};

struct CentroidTitle {
    MeasureKind kind;
    LPCSTR title;
};

constexpr CentroidTitle kCentroidTitles[] = {{kVolume, "Solids"}, {kArea, "Surfaces"}, {kLength, "Lines"}};

constexpr Field kBoundsFields[] = {
    {"Bounds", 0, 0, kTextField},
    {"X", 1, 1, kNumberField},
    {"Y", 2, 2, kNumberField},
    {"Z", 3, 4, kNumberField},
};

constexpr Field kSolidFields[] = {
    {"Solid", 0, 0, kTextField},      {"Middle X", 1, 1, kNumberField}, {"Middle Y", 2, 2, kNumberField},
    {"Middle Z", 3, 3, kNumberField}, {"Radius", 4, 4, kNumberField},   {"Volume", 5, 5, kNumberField},
};
enum { kSolid, kMiddle, kRadius = 4, kSolidVolume };

// A radius of 0 is left out.
void WriteSolid(CReportTable& table, LPCSTR title, const double* middle, double radius, double volume)
{
    table.Text(kSolid, title);
    for (int axis = 0; axis < 3; ++axis)
        table.FormattedNumber(kMiddle + axis, middle[axis], FormatFor(middle[axis]));
    if (radius > 0)
        table.FormattedNumber(kRadius, radius, FormatFor(radius));
    table.FormattedNumber(kSolidVolume, volume, FormatFor(volume));
    table.NextRow();
}

} // namespace

void WriteCentroids(CReportSheet& sheet, const CModelView& view)
{
    CPointTable table(sheet, kCentroidFields, 4);
    for (const CentroidTitle& row : kCentroidTitles)
        if (const double* centroid = view.Centroid(row.kind))
            table.Add(row.title, centroid);
    if (table.IsEmpty())
        return;
    sheet.SectionTitle(view.Selection().IsEmpty() ? "Centroids" : "Centroids of the selected elements");
    table.Write();
}

void WriteBounds(CReportSheet& sheet, const CModelView& view)
{
    const double* const bounds = view.Bounds();
    const double extent[] = {bounds[3] - bounds[0], bounds[4] - bounds[1], bounds[5] - bounds[2]};
    CPointTable table(sheet, kBoundsFields, 4);
    table.Add("Lowest", bounds);
    table.Add("Highest", bounds + 3);
    table.Add("Extent", extent);
    sheet.SectionTitle("Bounds of all nodes");
    table.Write();
}

void WriteBoundingSolids(CReportSheet& sheet, const CModelView& view)
{
    const BoundingSolids& solids = view.Solids();
    sheet.SectionTitle("Bounding solids of all nodes");
    CReportTable table(sheet, kSolidFields, 6);
    table.Headings();
    table.Begin(3);
    WriteSolid(table, "Box", solids.middle, 0, solids.BoxVolume());
    WriteSolid(table, "Sphere", solids.middle, solids.sphereRadius, solids.SphereVolume());
    WriteSolid(table, "Cylinder on Z", solids.middle, solids.cylinderRadius, solids.CylinderVolume());
    table.End();
}
