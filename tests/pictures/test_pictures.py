"""How the windows look, in pictures that the tour makes of them."""

import itertools
import os
import subprocess
from pathlib import Path

import pytest
from PIL import Image, ImageChops

SCALES = (1.25, 1.5, 2.5)  # 1 and 2 are kept.
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


@pytest.mark.parametrize("suffix", ["", "-rtl"])
def test_a_windows_edge_is_one_line_of_whole_pixels_at_every_scale(tmp_path, suffix):
    make_pictures(tmp_path, *filter(None, [suffix[1:]]), *map(str, SCALES))
    for name, scale in itertools.product(("main-window", "reminder-stand", "settings-time", "history-week"), SCALES):
        picture = Image.open(tmp_path / f"{name}{suffix}@{scale}x.png").convert("RGB")
        for turn in (Image.ROTATE_90, Image.ROTATE_180, Image.ROTATE_270, Image.TRANSPOSE):
            side, line = picture.transpose(turn), int(scale)
            edge = [side.crop((line, y, side.width - line, y + 1)).getcolors() for y in (0, line - 1, line)]
            assert [len(colours) for colours in edge] == [1, 1, 1] and edge[1] == edge[0] != edge[2], (name, scale)
