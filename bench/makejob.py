#!/usr/bin/env python3
"""Writes a receipt job with a given number of rows: makejob.py [--fitting] rows job.xml

With --fitting no name is wider than its column or has an apostrophe: of such rows a check has nothing to say.

The same number of rows always gives the same bytes. Rows are written as they are made, so that a million of
them need no memory.
"""

import argparse
from itertools import cycle, islice
from xml.sax.saxutils import quoteattr

HEADER = """\
<?xml version="1.0" encoding="UTF-8"?>
<job>
  <method name="printFullOrderReceipt"/>
  <printers name="Cassa Città" charsize="1" ipaddress="192.168.1.40" port="9100"/>
  <geometry/>
  <headers line1="Cucina aperta fino a mezzanotte" line2="Venerdì e sabato: musica dal vivo"/>
  <logo/>
  <company name="Trattoria Il Caffè Ritrovato" address="Via delle Mimose 12" \
town="00000 Montefinto Alto" telephone="Tel. 000 000 0142" vat="Partita IVA 00000000000"/>
  <receipt serialnumber="2006/000317"/>
  <orderinfo date="14/03/2006" time="21:47" table="12" waiter="Niccolò" \
note="Torta alle nove, niente aglio" credit="25,00"/>
  <customer name="Società Agricola Però &amp; Figli s.r.l." \
billingaddress="Via dell&apos;Università 3, 00000 Montefinto, Italia" \
deliveryaddress="Località Ca&apos; Bianca 7, 00000 Montefinto" telephone="000 000 0187" \
licensenumber="11111111111" fiscalcode="11111111111"/>
"""

COLUMN = 17  # characters, of the descriptions with the settings in bench/home

# Names narrower than the description column, just as wide and wider, some with accents.
DISHES = (
    ("Caffè", 120),
    ("Tè", 200),
    ("Coperto", 250),
    ("Tiramisù", 550),
    ("Acqua minerale", 220),
    ("Ragù di cinghiale", 1450),
    ("Baccalà mantecato con polenta bianca", 1680),
    ("Spaghetti alla chitarra", 1100),
    ("Crème brûlée", 650),
    ("Perché no? Gelato della casa", 490),
    ("Pane d'Altamura & olio", 310),
    ("Bistecca", 1990),
    ("Menù degustazione di mare per due persone", 11200),
    ("Insalata di finocchi e arance", 720),
    ("Papà Gnocco", 980),
    ("Pizza", 829),
    ("Risotto al radicchio", 1275),
    ("Bavarese al lampone con salsa di mandorle", 610),
    ("Grappa più caffè", 460),
)
QUANTITIES = (1, 2, 1, 4, 3, 1, 12, 2, 1, 6, 2)


def amount(cents):
    return f"{cents // 100},{cents % 100:02}"


def fitting(name):
    return name.replace("'", " ")[:COLUMN]


def write_job(job, rows, dishes):
    """The lengths of the lists have no common divisor: all pairs come up before the first comes again."""
    dishes = cycle([(quoteattr(name), amount(price), price) for name, price in dishes])
    total = 0
    job.write(HEADER)
    for (name, price, cents), quantity in islice(zip(dishes, cycle(QUANTITIES)), rows):
        row = quantity * cents
        total += row
        job.write(
            f'  <receipe number="{quantity}" name={name} price="{price}" totalPrice="{amount(row)}"/>\n'
        )
    job.write(f'  <total price="{amount(total)}"/>\n')
    job.write(f'  <notPaid price="{amount(total // 4)}"/>\n')
    job.write("</job>\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--fitting", action="store_true")
    parser.add_argument("rows", type=int)
    parser.add_argument("job")
    arguments = parser.parse_args()
    dishes = [(fitting(name), price) for name, price in DISHES] if arguments.fitting else DISHES
    with open(arguments.job, "w", encoding="utf-8", newline="\n") as job:
        write_job(job, arguments.rows, dishes)


if __name__ == "__main__":
    main()
