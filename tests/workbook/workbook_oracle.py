#!/usr/bin/env python3
"""What other programs find in a workbook, or make of a table. A cell is a line: row, column, text as UTF-16 in hex.

workbook_oracle.py read xlrd|csv FILE      prints the cells
workbook_oracle.py look FILE               prints what a user sees of an .xls sheet beside its texts
workbook_oracle.py write xlwt|csv FILE     takes cells from standard input
"""

import csv
import sys


def read_xlrd(name):
    import xlrd
    sheet = xlrd.open_workbook(name).sheet_by_index(0)
    for row in range(sheet.nrows):
        for column in range(sheet.ncols):
            yield row, column, sheet.cell_value(row, column)


def read_csv(name):
    csv.field_size_limit(1 << 20)
    with open(name, encoding='utf-8', newline='') as file:
        for row, fields in enumerate(csv.reader(file)):
            for column, text in enumerate(fields):
                yield row, column, text


def look(name):
    import xlrd
    book = xlrd.open_workbook(name, formatting_info=True)
    sheet = book.sheet_by_index(0)
    print(sheet.name, 'frozen rows', sheet.horz_split_pos if sheet.panes_are_frozen else 0)
    print('widths', *(sheet.computed_column_width(column) // 256 for column in range(sheet.ncols)))
    for row in range(sheet.nrows):
        form = book.xf_list[sheet.cell_xf_index(row, 0)]
        print('row', row, book.font_list[form.font_index].name, 'weight', book.font_list[form.font_index].weight,
              book.format_map[form.format_key].format_str, 'wrapped' if form.alignment.text_wrapped else 'cut',
              ['top', 'center', 'bottom'][form.alignment.vert_align])


def given_cells():
    for line in sys.stdin:
        row, column, text = (line.rstrip('\n') + ' ').split(' ')[:3]
        yield int(row), int(column), bytes.fromhex(text).decode('utf-16-le')


def write_xlwt(name):
    import xlwt
    book = xlwt.Workbook(encoding='utf-8')
    sheet = book.add_sheet('Texts')
    for row, column, text in given_cells():
        sheet.write(row, column, text)
    book.save(name)


def write_csv(name):
    rows = {}
    for row, column, text in given_cells():
        rows.setdefault(row, {})[column] = text
    with open(name, 'w', encoding='utf-8', newline='') as file:
        writer = csv.writer(file)
        for row in range(max(rows, default=-1) + 1):
            cells = rows.get(row, {})
            writer.writerow([cells.get(column, '') for column in range(max(cells, default=-1) + 1)])


def main():
    what, *rest = sys.argv[1:]
    if what == 'read':
        for row, column, text in {'xlrd': read_xlrd, 'csv': read_csv}[rest[0]](rest[1]):
            if text:
                print(row, column, text.encode('utf-16-le').hex())
    elif what == 'look':
        look(rest[0])
    elif what == 'write':
        {'xlwt': write_xlwt, 'csv': write_csv}[rest[0]](rest[1])


if __name__ == '__main__':
    main()
