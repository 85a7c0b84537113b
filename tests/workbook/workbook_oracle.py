#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Converts a workbook with other libraries: workbook_oracle.py IN OUT.

From .xls to .csv, its texts; from .csv to .xls; or from .xls to .txt, what a user sees of a sheet besides its texts.
"""

import csv
import sys

import xlrd
import xlwt


def texts(file, source):
    sheet = xlrd.open_workbook(source).sheet_by_index(0)
    csv.writer(file).writerows(sheet.row_values(row) for row in range(sheet.nrows))


def look(file, source):
    book = xlrd.open_workbook(source, formatting_info=True)
    sheet = book.sheet_by_index(0)
    print(sheet.name, 'frozen rows', sheet.horz_split_pos if sheet.panes_are_frozen else 0, file=file)
    print('widths', *(sheet.computed_column_width(column) // 256 for column in range(sheet.ncols)), file=file)
    for row in range(sheet.nrows):
        form = book.xf_list[sheet.cell_xf_index(row, 0)]
        print('row', row, book.font_list[form.font_index].name, 'weight', book.font_list[form.font_index].weight,
              book.format_map[form.format_key].format_str, 'wrapped' if form.alignment.text_wrapped else 'cut',
              ['top', 'center', 'bottom'][form.alignment.vert_align], file=file)


def make_xls(target, source):
    book = xlwt.Workbook(encoding='utf-8')
    sheet = book.add_sheet('Texts')
    csv.field_size_limit(1 << 20)
    with open(source, encoding='utf-8-sig', newline='') as file:
        for row, cells in enumerate(csv.reader(file)):
            for column, text in enumerate(cells):
                if text:
                    sheet.write(row, column, text)
    book.save(target)


def main():
    source, target = sys.argv[1:]
    if target.endswith('.xls'):
        make_xls(target, source)
    else:
        with open(target, 'w', encoding='utf-8', newline='') as file:
            (look if target.endswith('.txt') else texts)(file, source)


if __name__ == '__main__':
    main()
