#!/usr/bin/python3
"""A household that cannot see the screen makes its first bill, changes a meter, prints to a PDF, makes a backup
and brings the year back, and looks something up: by role and name of what a screen reader is given, and by keys.

first_bill.py KALVIRA"""
import pathlib
import sys
import tempfile
from decimal import Decimal

import reader
from reader import Return, key, text_of, wait

MONTHS = ("Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober",
          "November", "Dezember")
YEAR = "Haushalt 2025"
START, MONTHLY, PRICE, FEE, VAT, ADVANCE = 41236, 300, Decimal("30"), Decimal("120"), Decimal("19"), Decimal("110")


def german(amount):
    return f"{amount:,.2f}".translate(str.maketrans(",.", ".,"))


def make_year(program):
    start = program.window("Kalvira")
    start.press("Neue Datei ANLEGEN")
    new = program.window("Weitere Datenbanken")
    new.type("Eingabe Name", YEAR, leave=False)
    new.press("Datenbank anlegen")
    program.window("Eingabe prüfen").press("Ja")
    program.window("Kalvira", role="alert").press("OK")
    program.gone("Weitere Datenbanken")


def open_year(program):
    start = program.window("Kalvira")
    start.select("Jahresdateien", f"{YEAR}.kwd")
    start.press("Verbrauchserfassung öffnen")
    return program.window("Verbrauchsberechnung")


def take_over(program, window):
    window.press("Eingaben übernehmen")
    window.press("Fenster schließen")
    program.gone("Eingabe Zählerstand")


def make_bill(program):
    question = program.window("Eingabe Anfangszählerstand")
    question.type("Anfangszählerstand eingeben", str(START), leave=False)
    question.press("OK")
    program.gone("Eingabe Anfangszählerstand")
    year = program.window("Verbrauchsberechnung")
    for field, figure in (("Preis je Einheit, Tagstrom", PRICE), ("Grundgebühr im Jahr, Vertrag", FEE),
                          ("MwSt, Vertrag", VAT)):
        year.type(field, str(figure))
    for month in MONTHS:
        year.type(f"Abschlag {month}", str(ADVANCE))
    year.press("Eingabe Zählerstand Strom")
    window = program.window("Eingabe Zählerstand Strom")
    for k, month in enumerate(MONTHS, 1):
        window.type(f"Zählerstand {month}", str(START + k * MONTHLY))
    take_over(program, window)
    year.get("label", f"Verbrauch Januar: {MONTHLY}")

    gross = (12 * MONTHLY * PRICE / 100 + FEE) * (100 + VAT) / 100
    year.press("Übersicht", role="page tab")
    spoken = f"Strom. Nachzahlung {german(gross - 12 * ADVANCE)} Euro. {german(gross)} brutto"
    wait(f"the bill '{spoken}'", lambda: any(
        each.get_name().startswith(spoken) for each in reader.below(year.control)))
    return year


def change_meter(program, year):
    year.press("Zählerstände und Preise Wasser", role="page tab")
    year.type("Anfangszählerstand, Wasser", "100")
    year.press("Eingabe Zählerstand Wasser")
    window = program.window("Eingabe Zählerstand Wasser")
    for k, month in enumerate(MONTHS[:6], 1):
        window.type(f"Zählerstand {month}", str(100 + 10 * k))
    window.choose("Zählerwechsel im Juni")
    window.type("Anfangszählerstand bei Zählerwechsel", "5")
    window.type("Zählerstand Juli", "18")
    take_over(program, window)
    year.get("label", "Verbrauch Juli: 13")
    wait("6 x 10 m³ of the old meter and 13 of the new", lambda: text_of(year.get("text", "Verbrauch, Wasser")) == "73")


def print_pdf(program, year):
    year.press("Übersicht", role="page tab")
    year.part("layered pane").press("Drucken")
    dialog = program.window("Drucken")
    target = pathlib.Path(text_of(dialog.get("text", "Ausgabedatei:")))
    dialog.press("Drucken")
    program.gone("Drucken")
    wait("a PDF", lambda: target.exists() and target.read_bytes().rstrip().endswith(b"%%EOF"))
    assert target.read_bytes().startswith(b"%PDF-")


def back_up(program):
    start = program.window("Kalvira")
    start.press("Daten SICHERN")
    backup = program.window("Verbrauchs-Daten  sichern")
    backup.select("Verzeichnis, in das gesichert wird", "Sicherung", "tree", "table cell")
    backup.press("Sichern")
    program.window("Datensicherung").press("OK")
    backup.press("Fenster schließen")
    program.gone("Verbrauchs-Daten")


def restore(program):
    program.window("Kalvira").menu("Daten Verbrauchserfassung",
                                   "Verbrauchs-Daten wiederherstellen (oder aus Version 8.7 importieren)")
    window = program.window("Verbrauchs-Daten  wiederherstellen")
    window.select("Verzeichnis mit den gesicherten Dateien", "Sicherung", "tree", "table cell")
    window.select("Verbrauchskosten", f"{YEAR}.kwd")
    window.press("Wiederherstellen")
    for sentence in ("Achtung!", "Die oben ausgewählten"):
        box = program.window("Datensicherung wiederherstellen")
        wait(sentence, lambda: any(each.get_name().startswith(sentence) for each in reader.below(box.control)))
        box.press("OK")
        program.gone("Datensicherung wiederherstellen", box)
    window.press("Fenster schließen")
    program.gone("Verbrauchs-Daten")


def read_manual(program, year):
    year.menu("?", "Handbuch")
    book = program.window("Kalvira - Handbuch")
    page = book.get("label", "Seite des Handbuchs")
    wait("the page of what is in front", lambda: text_of(page).startswith("Die Jahresübersicht"))
    book.type("Suchen", "Brennwert", leave=False)
    book.get("label", "1 Stelle")
    key(Return)
    wait("the place that was found", lambda: "Brennwert" in text_of(page))
    book.press("Schließen")
    program.gone("Kalvira - Handbuch")


def leave_year(program, year):
    year.press("Ende")
    program.ended()


def run(path, home):
    (home / "Sicherung").mkdir()
    with reader.Program(path, HOME=str(home)) as program:
        make_year(program)
        open_year(program)
        year = make_bill(program)
        read_manual(program, year)
        change_meter(program, year)
        print_pdf(program, year)
        leave_year(program, year)
    with reader.Program(path, HOME=str(home)) as program:
        back_up(program)
        year = open_year(program)
        year.type("MwSt, Vertrag", "7")
        leave_year(program, year)
    with reader.Program(path, HOME=str(home)) as program:
        restore(program)
        year = open_year(program)
        wait("19 per cent again", lambda: text_of(year.get("text", "MwSt, Vertrag")) == str(VAT))
        leave_year(program, year)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        run(sys.argv[1], pathlib.Path(folder))
