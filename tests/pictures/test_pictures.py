"""How the windows look, in pictures that the tour makes of them."""

import itertools
import os
import subprocess
from pathlib import Path

import pytest
from PIL import Image, ImageChops, ImageOps

SCALES = (1, 1.25, 1.5, 2)
KEPT = Path(__file__).parents[2] / "docs/screenshots"
# One processor rounds a smooth edge otherwise than another.
ROUNDING = 4


def make_pictures(*arguments):
    subprocess.run([os.environ["ZELVO_TOUR"], "--pictures", *arguments], check=True, stdout=subprocess.DEVNULL)


def differs(made, kept):
    with Image.open(made) as ours, Image.open(kept) as theirs:
        ours, theirs = ours.convert("RGB"), theirs.convert("RGB")
        if ours.size != theirs.size:
            return True
        return any(most > ROUNDING for _, most in ImageChops.difference(ours, theirs).getextrema())


# Where a change of its look is meant, the tour makes them anew. A dark desktop changes nothing; some readers' windows are mirrored.
@pytest.mark.parametrize("variant,kept_as", [("", ""), ("dark", ""), ("de", "-de"), ("rtl", "-rtl"), ("dark-look", "-dark-look")])
def test_every_window_looks_as_it_is_kept(tmp_path, variant, kept_as):
    make_pictures(tmp_path, *filter(None, [variant]))
    kept = {made: KEPT / made.name.replace(variant and f"-{variant}", kept_as) for made in tmp_path.iterdir()}
    kept = {made: picture for made, picture in kept.items() if picture.exists()}
    assert len(kept) >= 4
    assert [picture.name for made, picture in kept.items() if differs(made, picture)] == []
    contrasts = next(tmp_path.glob("contrasts*")).read_text().splitlines()
    assert len(contrasts) > 200 and [line for line in contrasts if float(line.split("\t")[2]) < 4.5] == []


def dots(picture, scale):
    """The widths of what stands out from the settings' slider: four dots and the knob."""
    rail = picture.crop([round(edge * scale) for edge in (100, 340, 540, 369)])
    drawn = ImageChops.difference(rail, Image.new("RGB", rail.size, rail.getpixel((0, 0)))).convert("L")
    thick = [sum(v > 12 for v in drawn.crop((x, 0, x + 1, drawn.height)).getdata()) > 6 * scale for x in range(drawn.width)]
    return sorted(len(list(run)) for is_dot, run in itertools.groupby(thick) if is_dot)


def ink(picture, box):
    """Where a part of the picture differs from its upper left corner."""
    part = picture.crop(box)
    found = ImageChops.difference(part, Image.new("RGB", part.size, part.getpixel((0, 0)))).getbbox()
    return found[0] + box[0], found[1] + box[1], found[2] + box[0], found[3] + box[1]


@pytest.mark.parametrize("suffix", ["", "-rtl"])
def test_every_window_stands_on_one_grid_at_every_scale(tmp_path, suffix):
    make_pictures(tmp_path, *filter(None, [suffix[1:]]), *map(str, SCALES))
    windows = {
        # Picture: the margins, and whether there is a header with a close mark, after a title
        "main-window": (20, True, False),
        "reminder-stand": (20, False, False),
        "settings-time": (32, True, True),
        "history-week": (32, True, True),
    }
    for (name, (margin, has_mark, has_title)), scale in itertools.product(windows.items(), SCALES):
        picture = Image.open(tmp_path / f"{name}{suffix}{'' if scale == 1 else f'@{scale}x'}.png").convert("RGB")
        picture = ImageOps.mirror(picture) if suffix else picture
        width, height = picture.size
        line, slack = int(scale), scale % 1 > 0
        left, right = margin * scale, width - margin * scale

        for turn in (Image.ROTATE_90, Image.ROTATE_180, Image.ROTATE_270, Image.TRANSPOSE):
            side = picture.transpose(turn)
            edge = [side.crop((line, y, side.width - line, y + 1)).getcolors() for y in (0, line - 1, line)]
            assert [len(colours) for colours in edge] == [1, 1, 1] and edge[1] == edge[0] != edge[2], (name, scale)

        content = ink(picture, (line, line, width - line, height - line))
        header = ink(picture, (line, line, width - line, round(64 * scale)))
        assert abs(content[0] - left) <= slack and abs(content[2] - right) <= slack, (name, scale)
        assert not has_mark or abs(header[2] - right) <= slack, (name, scale)
        assert not has_title or left <= header[0] <= left + 4 * scale, (name, scale)
        if name == "settings-time":
            assert len(dots(picture, scale)) == 5 and len(set(dots(picture, scale)[:4])) == 1, scale
