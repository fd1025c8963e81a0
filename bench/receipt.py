#!/usr/bin/env python3
"""Prints the benchmark's receipt job on expat: receipt.py job.xml script.txt

Writes the script that the print program writes for it with the settings in home/, all print flags on.
Streams: an element is printed as it is read.
"""

import sys
from xml.parsers import expat

PAPER = 40
QUANTITY = 4
PRICE = 8
TOTAL = 8
TOP_MARGIN = 2

ROW_NAME = PAPER - QUANTITY - PRICE - TOTAL - 3
TITLE = PAPER - QUANTITY - PRICE - TOTAL - 1

# Lines are centred on the register's own 32 characters; the closing quote and the line end take three.
CENTRED = 29

SEPARATOR = f"nofis riga='{'=' * PAPER}'\r\n"
EMPTY_LINE = "nofis riga=''\r\n"


class Receipt:
    def __init__(self, script):
        self.write = script.write
        self.printer_name = ""
        self.titles_printed = False
        self.printers_of = {
            "receipe": self.row,
            "method": self.open_document,
            "printers": self.printers,
            "geometry": self.geometry,
            "headers": self.headers,
            "company": self.company,
            "receipt": self.receipt,
            "orderinfo": self.order_info,
            "customer": self.customer,
            "total": self.total,
            "notPaid": self.not_paid,
        }

    def start_element(self, name, attributes):
        print_element = self.printers_of.get(name)
        if print_element:
            print_element(attributes)

    def line(self, text):
        self.write(f"nofis riga='{text}'\r\n")

    def centred_line(self, text):
        self.line(" " * ((CENTRED - len(text)) // 2) + text)

    def labelled_lines(self, attributes, labels):
        for label, name in labels:
            self.line(f" {label} {attributes[name]}")

    def address(self, text):
        for field in text.split(","):
            if not field:
                break
            self.line(" " + field.strip())

    def open_document(self, attributes):
        self.write("nofis apri\r\n")

    def close_document(self):
        self.write("nofis chiudi\r\n")

    def printers(self, attributes):
        self.printer_name = attributes["name"]

    def geometry(self, attributes):
        self.write(EMPTY_LINE * TOP_MARGIN)

    def headers(self, attributes):
        for text in attributes.values():
            self.line(text)
        self.write(SEPARATOR)
        self.centred_line(self.printer_name)
        self.write(SEPARATOR)

    def company(self, attributes):
        for text in attributes.values():
            self.centred_line(text)
        self.write(SEPARATOR)

    def receipt(self, attributes):
        self.line(f" Serial Number: {attributes['serialnumber']}")
        self.write(SEPARATOR)

    def order_info(self, attributes):
        self.labelled_lines(
            attributes,
            (
                ("Date:", "date"),
                ("Time:", "time"),
                ("Table:", "table"),
                ("Waiter:", "waiter"),
                ("Note:", "note"),
                ("Credit:", "credit"),
            ),
        )
        self.write(SEPARATOR)

    def customer(self, attributes):
        self.line("CUSTOMER")
        self.line(" " + attributes["name"])
        self.address(attributes["billingaddress"])
        self.address(attributes["deliveryaddress"])
        self.labelled_lines(
            attributes,
            (
                ("Telephone:", "telephone"),
                ("License Number:", "licensenumber"),
                ("Fiscal Code:", "fiscalcode"),
            ),
        )
        self.write(SEPARATOR)

    def row(self, attributes):
        if not self.titles_printed:
            self.titles_printed = True
            self.line(f"{'Num':>{QUANTITY}} {'Description':<{TITLE}}{'Price':>{PRICE}}{'Amount':>{TOTAL}}")
        self.line(
            f"{attributes['number']:>{QUANTITY}} x {attributes['name']:.<{ROW_NAME}.{ROW_NAME}}"
            f"{attributes['price']:.>{PRICE}}{attributes['totalPrice']:>{TOTAL}}"
        )

    def total(self, attributes):
        self.write(EMPTY_LINE)
        self.line(f"{'':{QUANTITY}} {'TOTAL':.<{TITLE}}{'':.>{PRICE}}{attributes['price']:>{TOTAL}}")

    def not_paid(self, attributes):
        self.write(EMPTY_LINE)
        self.line(f"    Amount not paid: {attributes['price']}")


def main():
    if len(sys.argv) != 3:
        sys.exit("Usage: receipt.py job.xml script.txt")
    with open(sys.argv[1], "rb") as job, open(sys.argv[2], "w", encoding="utf-8", newline="") as script:
        receipt = Receipt(script)
        parser = expat.ParserCreate()
        parser.StartElementHandler = receipt.start_element
        parser.ParseFile(job)
        receipt.close_document()


if __name__ == "__main__":
    main()
