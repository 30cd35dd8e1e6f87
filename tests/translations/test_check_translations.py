"""Shows that check_translations.py notices each kind of broken translation."""

import pathlib
import tempfile
import unittest

from check_translations import Message, faults_of_file, faults_of_form, shared_accelerators

SOUND = [
    ("Source: %1", "Quelle: %1"),
    ("%1 of %2", "%2 von %1"),
    ("%1 % watched", "%1 % gesehen"),
    ("&Open", "Ö&ffnen"),
    ("< Back to Shows", "< Zurück zu den Serien"),
    ("Load File...", "Datei laden..."),
    (" hours", " Stunden"),
    ("Files (*.a *.b);;All (*)", "Dateien (*.a *.b);;Alle (*)"),
]

BROKEN = [
    ("is empty", "Source", " "),
    ("placeholders", "Source: %1", "Quelle"),
    ("placeholders", "%1 of %2", "%1 von %1"),
    ("placeholders", "%1: %Ln programmes", "%1: Sendungen"),
    ("percent signs", "%1 %", "%1"),
    ("digits of another script", "Source: %1", "Quelle: %1 %\u0661"),
    ("accelerator", "&Open", "Öffnen"),
    ("accelerator", "Open", "Ö&ffnen"),
    ("HTML", "Open", "<b>Öffnen</b>"),
    ("blanks", " hours", "Stunden"),
    ("blanks", "Tracks:\n", "Spuren:"),
    ("ellipsis", "Open...", "Öffnen"),
    ("ellipsis of one character", "Wait for...", "Warten auf\u2026"),
    ("number of lines", "One\nTwo", "Eins Zwei"),
    ("patterns", "Files (*.a *.b);;All (*)", "Dateien (*.a);;Alle (*)"),
    ("patterns", "Files (*.a);;All (*)", "Dateien (*.a);Alle (*)"),
]


def message(text, *forms, finished=True):
    return Message("Menu", text, None, list(forms), finished)


class Forms(unittest.TestCase):
    def test_sound_translations_pass(self):
        for source, form in SOUND:
            with self.subTest(source):
                self.assertEqual(list(faults_of_form(source, form)), [])

    def test_broken_translations_are_told(self):
        for fault, source, form in BROKEN:
            with self.subTest(form):
                self.assertIn(fault, " ".join(faults_of_form(source, form)))

    def test_accelerators_are_unique_as_in_english(self):
        copy, cut = message("&Copy", "&Kopieren"), message("Cu&t", "Aus&schneiden")
        self.assertEqual(list(shared_accelerators([copy, cut])), [])
        clash = message("Cu&t", "Schnitt mit &K")
        self.assertEqual(list(shared_accelerators([copy, clash])), [(copy, clash)])
        twice = message("&Copy All", "Alles &kopieren")
        self.assertEqual(list(shared_accelerators([copy, twice])), [])


class Files(unittest.TestCase):
    def faults(self, entry, *expected, language="de"):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "vantiro_de.ts"
            file.write_text(f'<TS version="2.1" language="{language}"><context><name>Menu</name>'
                            f"{entry}</context></TS>", encoding="utf-8")
            return list(faults_of_file(file, {("Menu", m.source, None): m for m in expected}))

    def entry(self, translation):
        return f"<message><source>Open</source>{translation}</message>"

    def test_sound_file(self):
        entry = self.entry("<translation>Öffnen</translation>")
        self.assertEqual(self.faults(entry, message("Open", "")), [])

    def test_faults_of_files(self):
        done = self.entry("<translation>Öffnen</translation>")
        rows = [
            ("not translated: 'Open'", "", "de"),
            ("not translated: 'Open'", self.entry('<translation type="unfinished"/>'), "de"),
            ("no longer has: 'Shut'", done + self.entry("<translation>Zu</translation>").replace(
                "Open", "Shut"), "de"),
            ("1 plural forms", self.entry(
                "<translation><numerusform>Öffnen</numerusform></translation>"), "de"),
            ("language is fr", done, "fr"),
        ]
        for fault, entry, language in rows:
            with self.subTest(fault):
                forms = ("", "") if "plural" in fault else ("",)
                found = self.faults(entry, message("Open", *forms), language=language)
                self.assertEqual(len(found), 1, found)
                self.assertIn(fault, found[0])


if __name__ == "__main__":
    unittest.main()
