"""The texts, pictures and styles beside the forms and the code that name them."""

import os
import re
import subprocess
from pathlib import Path
from xml.etree import ElementTree

SOURCE = Path(__file__).resolve().parents[2] / "src"
LANGUAGES = ["en", "de", "fr", "es", "nl"]
CODE = "".join(path.read_text() for end in ("*.cpp", "*.h") for path in SOURCE.rglob(end))
FORMS = [ElementTree.parse(path) for path in SOURCE.rglob("*.ui")]


def messages(table):
    return [(m.get("id"), m.findtext("source"), m.find("translation")) for m in ElementTree.parse(table).iter("message")]


def texts(language):
    table = messages(SOURCE / f"resources/strings/StandUp_{language}.ts")
    assert [key for key, _, translation in table if translation.attrib] == [], "unfinished"
    assert len({key for key, _, _ in table}) == len(table), "a key stands twice"
    # A number may need one of several forms, which follow each other here.
    return {key: " / ".join(form.text for form in translation) or translation.text or "" for key, _, translation in table}


TEXTS = {language: texts(language) for language in LANGUAGES}


def said(name):
    """What the forms say in that property of their own."""
    return {p.findtext("string") for form in FORMS for p in form.iter("property") if p.get("name") == name}


def test_every_text_that_is_shown_stands_in_every_language_and_no_other(tmp_path):
    found = tmp_path / "found.ts"
    subprocess.run([os.environ.get("LUPDATE", "/usr/lib/qt6/bin/lupdate"), "-silent", SOURCE, "-ts", found],
                   check=True, stderr=subprocess.DEVNULL)
    # lupdate does not escape the line break in the key of the list of errors.
    shown = {key.replace("  ", " \n"): english for key, english, _ in messages(found) if key}
    assert [s.text for form in FORMS for s in form.iter("string") if not (s.get("id") or s.get("notr"))] == []
    drawn_by_lot = {f"{list_}Message{number}" for list_ in ("Standing", "Sitting") for number in range(1, 11)}
    for table in TEXTS.values():
        assert table.keys() == shown.keys() | drawn_by_lot
        assert {key: sorted(re.findall(r"%\d+|%[^ ]", text)) for key, text in table.items()} == {
            key: sorted(re.findall(r"%\d+", text)) for key, text in TEXTS["en"].items()}
        for key in ("StandingMessage", "SittingMessage"):
            assert len({table[f"{key}{number}"] for number in range(1, 11)}) == 10
    assert {key: english for key, english in shown.items() if english and english != TEXTS["en"][key]} == {}
    assert [key for key, text in TEXTS["en"].items() if " " in key.strip() and key != text] == [], "a key in words says it"


def test_what_qt_says_is_found_by_its_own_english(tmp_path):
    all_of_qt = tmp_path / "qt.ts"
    subprocess.run(["/usr/lib/qt6/bin/lconvert", "-i", "/usr/share/qt6/translations/qtbase_de.qm", "-o", all_of_qt], check=True)
    own, *others, known = [{(context.findtext("name"), message.findtext("source"))
                            for context in ElementTree.parse(table).iter("context") for message in context.iter("message")}
                           for table in [*(SOURCE / "resources/strings").glob("Qt_*.ts"), all_of_qt]]
    assert (own - known, [own ^ other for other in others]) == (set(), [set()] * 3)


def test_forms_and_code_name_pictures_and_styles_that_are_there():
    pictures = {path.stem for path in (SOURCE / "resources/images").glob("*.svg")}
    assert pictures == set(re.findall(r"^    (\w+)$", (SOURCE / "resources/CMakeLists.txt").read_text(), re.MULTILINE))
    in_forms = said("imageName") | said("pictureName")
    assert pictures == in_forms | {name + "_hoover" for name in said("imageName")} | {
        name for name in pictures if f'"{name.removesuffix("_hoover")}"' in CODE}
    assert said("textStyle") <= set(re.findall(r"static QFont (\w+)\(\)", CODE))
    assert said("foregroundRole") | said("backgroundRole") <= {"Base", "Button", "Highlight", "HighlightedText", "Link", "Window"}
