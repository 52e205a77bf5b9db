// officefiles_peer FILE: the sample "shared" as another library writes it.
#include <xlsxwriter.h>

namespace {

struct Formats {
    explicit Formats(lxw_workbook* book)
        : title(workbook_add_format(book)), filled(workbook_add_format(book)),
          number(workbook_add_format(book)), centred(workbook_add_format(book))
    {
        format_set_bold(title);
        format_set_italic(title);
        format_set_font_color(title, 0xFF0000);
        format_set_font_size(title, 14);
        format_set_pattern(filled, LXW_PATTERN_SOLID);
        format_set_fg_color(filled, 0xD0E0F0);
        format_set_border(filled, LXW_BORDER_THIN);
        format_set_num_format(number, "0.000_ ");
        format_set_align(centred, LXW_ALIGN_CENTER);
        format_set_align(centred, LXW_ALIGN_VERTICAL_CENTER);
        format_set_text_wrap(centred);
    }
    lxw_format *title, *filled, *number, *centred;
};

void WriteCells(lxw_worksheet* sheet, const Formats& formats)
{
    worksheet_write_string(sheet, 0, 0, "Title", formats.title);
    worksheet_write_string(sheet, 1, 0, " a & <b>", nullptr);
    worksheet_write_string(sheet, 2, 0, "Title", formats.centred);
    worksheet_write_number(sheet, 0, 1, 1.5, nullptr);
    worksheet_write_number(sheet, 1, 1, -3, formats.filled);
    worksheet_write_number(sheet, 2, 1, 0.1, formats.number);
    worksheet_write_boolean(sheet, 3, 1, 1, nullptr);
    worksheet_write_formula_num(sheet, 4, 1, "=SUM(B1:B3)", nullptr, -1.4);
    worksheet_merge_range(sheet, 6, 0, 7, 2, "wide", nullptr);
}

void SetLayout(lxw_worksheet* sheet)
{
    worksheet_set_column(sheet, 0, 0, 20, nullptr);
    worksheet_set_column(sheet, 2, 3, 5.5, nullptr);
    worksheet_set_row(sheet, 1, 30, nullptr);
    worksheet_set_paper(sheet, 9);
    worksheet_set_landscape(sheet);
    worksheet_set_margins(sheet, 0.5, 0.5, 1, 1);
    worksheet_set_header(sheet, "&C&P of &N");
    worksheet_center_horizontally(sheet);
    worksheet_print_area(sheet, 0, 0, 9, 3);
    worksheet_repeat_rows(sheet, 0, 0);
    lxw_row_t breaks[] = {5, 0};
    worksheet_set_h_pagebreaks(sheet, breaks);
    worksheet_gridlines(sheet, LXW_HIDE_ALL_GRIDLINES);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    lxw_workbook* book = workbook_new(argv[1]);
    const Formats formats(book);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Data");
    WriteCells(sheet, formats);
    SetLayout(sheet);
    worksheet_hide(workbook_add_worksheet(book, "Second sheet"));
    workbook_define_name(book, "Total", "=Data!$B$5");
    return workbook_close(book) == LXW_NO_ERROR ? 0 : 3;
}
