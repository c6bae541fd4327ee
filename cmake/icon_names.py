#!/usr/bin/env python3
"""Makes the catalogue of the icon picker from Unicode's data.

usage: icon_names.py UNICODE_FOLDER SYMBOLS OUTPUT_FOLDER LANGUAGE...

Writes icons.txt, a line for each icon and, before the first one of each section, a line with a tab and the section's
key; and for each language LANGUAGE.txt with the same lines: "name<tab>keywords", or the section's title.
"""

import os
import re
import sys
import xml.etree.ElementTree as ET

# The sections of emoji: the groups of emoji-test.txt, and the label that names the section in the locale data.
SECTIONS = [
    ("smileys_people", ["Smileys & Emotion", "People & Body"], "Smileys & People"),
    ("animals_nature", ["Animals & Nature"], "Animals & Nature"),
    ("food_drink", ["Food & Drink"], "Food & Drink"),
    ("travel_places", ["Travel & Places"], "Travel & Places"),
    ("activities", ["Activities"], "Activities"),
    ("objects", ["Objects"], "Objects"),
    ("symbols", ["Symbols"], "Symbols"),
    ("flags", ["Flags"], "Flags"),
]
EMOJI_LINE = re.compile(r"^([0-9A-F ]+?) *; fully-qualified *# \S+ E[0-9.]+ (.+)$")
SKIN_TONES = range(0x1F3FB, 0x1F400)
PRESENTATION = "\uFE0F"  # the locale data leaves it out
INHERITED = "↑↑↑"


def read_emoji(unicode_folder):
    """Group -> [(emoji, English name)] in Unicode's order, without the variants in skin tones."""
    groups, group = {}, None
    with open(os.path.join(unicode_folder, "emoji", "emoji-test.txt"), encoding="utf-8") as file:
        for line in file:
            if line.startswith("# group: "):
                group = line[len("# group: "):].strip()
            match = EMOJI_LINE.match(line)
            if not match:
                continue
            scalars = [int(scalar, 16) for scalar in match.group(1).split()]
            if not any(scalar in SKIN_TONES for scalar in scalars):
                groups.setdefault(group, []).append(("".join(map(chr, scalars)), match.group(2)))
    return groups


def read_symbols(path):
    """[(symbol, characters of its name, further characters of its keywords)]"""
    symbols = []
    with open(path, encoding="utf-8") as file:
        for line in file:
            if line.startswith("#") or not line.strip():
                continue
            names, _, further = line.partition(" / ")
            symbol, *characters = names.split()
            symbols.append((symbol, characters, further.split()))
    return symbols


class LocaleData:
    """Names, keywords and labels of one language."""

    def __init__(self, unicode_folder, language):
        common = os.path.join(unicode_folder, "cldr", "common")
        self.names, self.keywords = {}, {}
        for folder in ("annotations", "annotationsDerived"):
            for entry in ET.parse(os.path.join(common, folder, language + ".xml")).getroot().iter("annotation"):
                character = entry.get("cp").replace(PRESENTATION, "")
                if entry.text == INHERITED:
                    continue
                if entry.get("type") == "tts":
                    self.names[character] = entry.text
                else:
                    self.keywords[character] = [word.strip() for word in entry.text.split("|")]
        root = ET.parse(os.path.join(common, "main", language + ".xml")).getroot()
        self.labels = {label.get("type"): capitalized(label.text) for label in root.iter("characterLabel")}

    def name(self, character):
        return self.names.get(character.replace(PRESENTATION, ""))

    def keywords_of(self, characters):
        found = []
        for character in characters:
            found += self.keywords.get(character.replace(PRESENTATION, ""), [])
            found += [self.name(character) or ""]
        return found


def capitalized(text):
    return text[:1].upper() + text[1:]


def name_line(name, keywords):
    """The words of the keywords, each once, without those of the name."""
    used = set(name.lower().split())
    words = []
    for word in " ".join(keywords).split():
        if word.lower() not in used:
            used.add(word.lower())
            words.append(word)
    return f"{name}\t{' '.join(words)}"


def symbol_line(symbol, characters, further, data, english):
    own = symbol.removesuffix(".fill").replace(".", " ")
    names = [data.name(character) or english.name(character) for character in characters]
    if None in names:
        sys.exit(f"icon_names.py: no name for a character of the symbol {symbol}")
    return name_line(" – ".join(names) or own, data.keywords_of(characters + further) + [own])


def names_in(language, data, english, symbols, emoji):
    lines = ["Symbols"]
    lines += [symbol_line(*symbol, data, english) for symbol in symbols]
    for key, groups, english_title in SECTIONS:
        title = english_title if language == "en" else data.labels[key]
        lines.append(f"{data.labels['emoji']} · {title}")
        for group in groups:
            lines += [name_line(data.name(text) or name, data.keywords_of([text])) for text, name in emoji[group]]
    return lines


def write(folder, name, lines):
    with open(os.path.join(folder, name + ".txt"), "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main(unicode_folder, symbols_file, output, languages):
    emoji, symbols = read_emoji(unicode_folder), read_symbols(symbols_file)
    icons = ["\tsymbols"] + [symbol for symbol, _, _ in symbols]
    for key, groups, _ in SECTIONS:
        icons += [f"\temoji_{key}"] + [text for group in groups for text, _ in emoji[group]]
    os.makedirs(output, exist_ok=True)
    write(output, "icons", icons)
    english = LocaleData(unicode_folder, "en")
    for language in languages:
        data = english if language == "en" else LocaleData(unicode_folder, language)
        lines = names_in(language, data, english, symbols, emoji)
        if len(lines) != len(icons):
            sys.exit(f"icon_names.py: {language} has {len(lines)} lines, not {len(icons)}")
        write(output, language, lines)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:])
