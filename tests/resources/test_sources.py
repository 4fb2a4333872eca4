"""The texts and pictures beside the code that names them."""

import re
from pathlib import Path
from xml.etree import ElementTree

import pytest

SOURCE = Path(__file__).resolve().parents[2] / "src"
LANGUAGES = ["en", "de", "fr", "es", "nl"]
STRING = r'"((?:[^"\\\n]|\\.)*)"'
SHOWS_TEXT = rf"\b(?:localizedString|localized|localizedText|qtTrId)\((?:QStringLiteral\()?{STRING}"
SHOWS_PICTURE = rf"\b(?:imagePath|Picture|setImageNamed|m_image\w*)\((?:QStringLiteral\()?{STRING}"
# Such keys reach the look-up through a table.
FAMILIES = r"(Access|ContextMenu|TrayTooltip)[A-Z][A-Za-z]+"


def texts(language):
    messages = ElementTree.parse(SOURCE / f"resources/strings/StandUp_{language}.ts").findall(".//message")
    assert [m.get("id") for m in messages if m.find("translation").attrib] == [], "unfinished"
    assert len({m.get("id") for m in messages}) == len(messages), "a key stands twice"
    return {message.get("id"): message.find("translation").text or "" for message in messages}


TEXTS = {language: texts(language) for language in LANGUAGES}
# Neighbouring literals are joined, as the compiler does.
CODE = [re.sub(r'"\s*\n\s*"', "", path.read_text()) for end in ("*.cpp", "*.h", "*.ui") for path in SOURCE.rglob(end)]


def literals(pattern):
    return {re.sub(r"\\(.)", lambda m: {"n": "\n"}.get(m[1], m[1]), found) for text in CODE for found in re.findall(pattern, text)}


NAMED = literals(STRING) | {word for text in CODE for word in re.findall(r">([^<>]+)<", text)}


def test_every_language_has_every_key_with_the_same_placeholders():
    for language in LANGUAGES[1:]:
        for table in (TEXTS["en"], TEXTS[language]):
            assert {key: sorted(re.findall(r"%\d+|%[^ ]", text)) for key, text in table.items()} == {
                key: sorted(re.findall(r"%\d+", text)) for key, text in TEXTS["en"].items()}


def test_every_key_in_the_code_has_a_text():
    known = TEXTS["en"].keys()
    assert "OverloadUpError" in NAMED and "Cancel" in literals(SHOWS_TEXT)
    # A key may be put together from a literal and a number.
    assert {key for key in literals(SHOWS_TEXT) if key not in known and key + "1" not in known} == set()
    assert {key for key in NAMED if re.fullmatch(FAMILIES, key)} <= known


def test_no_text_is_left_over():
    def is_named(key):
        stem = re.sub(r"\d+$", "", key)
        return not NAMED.isdisjoint({key, stem, stem + "%1"} if stem != key else {key})

    assert [key for key in TEXTS["en"] if not is_named(key)] == []


def test_the_headlines_of_a_reminder_differ():
    for language in LANGUAGES:
        for key in ("StandingMessage", "SittingMessage"):
            assert len({TEXTS[language][f"{key}{number}"] for number in range(1, 11)}) == 10


@pytest.mark.parametrize("languages, must_not_hold, because", [
    ("en de fr es nl", r"^$|^\s|[ \t]$|  ", "no text is empty or has stray space"),
    ("en de fr es nl", r"['\"]", "quotes and apostrophes are typographic"),
    ("en de fr es nl", r"\.\.\.", "an ellipsis is one character"),
    ("en de fr es nl", r"(?i)%\d (min|kcal)", "a number stays on the line of its unit"),
    ("fr", r"[^\u00a0][!?;:»]|«[^\u00a0]", "high punctuation has a no-break space"),
    ("es", r"^[^¿]*\?|^[^¡]*!", "questions and exclamations are opened"),
    ("de", r"\b(du|di[rc]h?|dein\w*|Sie|Ihr\w*|Ihnen)\b", "nobody is addressed"),
    ("fr", r"(?i)\b(tu|toi|ton|ta|tes|vous|votre|vos)\b", "nobody is addressed"),
    ("es", r"(?i)\b(tú|tus?|ti|usted|sus?)\b", "nobody is addressed"),
    ("nl", r"(?i)\b(je|jij|jouw|u|uw)\b", "nobody is addressed"),
])
def test_typography_is_that_of_the_language(languages, must_not_hold, because):
    wrong = [text for language in languages.split() for text in TEXTS[language].values()
             if re.search(must_not_hold, text.removesuffix(" \n"))]
    assert wrong == [], because


def test_the_code_and_the_pictures_name_each_other():
    pictures = {path.stem for path in (SOURCE / "resources/images").glob("*.svg")}
    listed = set(re.findall(r"^    (\w+)$", (SOURCE / "resources/CMakeLists.txt").read_text(), re.MULTILINE))
    assert pictures == listed
    assert "ButtonUp" in literals(SHOWS_PICTURE)
    assert literals(SHOWS_PICTURE) <= pictures
    assert [name for name in pictures if NAMED.isdisjoint({name, name.removesuffix("_hoover")})] == []


def test_a_hover_form_is_its_picture_in_the_brand_colour():
    brand = re.search(r'"ZelvoColor1": "(#\w+)"', (SOURCE / "resources/Info.json.in").read_text())[1]
    forms = list((SOURCE / "resources/images").glob("*_hoover.svg"))
    assert len(forms) == 10
    for form in forms:
        plain = form.with_name(form.name.replace("_hoover", "")).read_text()
        assert form.read_text() == plain.replace("#616161", brand.upper())
