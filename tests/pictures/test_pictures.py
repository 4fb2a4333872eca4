"""Every window looks as it does in docs/screenshots. Where a change of its look is meant, the tour makes them anew."""
import os
import subprocess
from pathlib import Path

import pytest
from PIL import Image, ImageChops

KEPT = Path(__file__).parents[2] / "docs/screenshots"
# One processor rounds a smooth edge otherwise than another.
ROUNDING = 4


def differs(made, kept):
    with Image.open(made) as ours, Image.open(kept) as theirs:
        ours, theirs = ours.convert("RGB"), theirs.convert("RGB")
        if ours.size != theirs.size:
            return True
        return any(most > ROUNDING for _, most in ImageChops.difference(ours, theirs).getextrema())


# A dark desktop changes nothing; some readers' windows are mirrored.
@pytest.mark.parametrize("variant,kept_as", [("", ""), ("dark", ""), ("de", "-de"), ("rtl", "-rtl")])
def test_every_window_looks_as_it_is_kept(tmp_path, variant, kept_as):
    tour = [os.environ["ZELVO_TOUR"], "--pictures", tmp_path, *filter(None, [variant])]
    subprocess.run(tour, check=True, stdout=subprocess.DEVNULL)
    kept = {made: KEPT / made.name.replace(variant and f"-{variant}", kept_as) for made in tmp_path.iterdir()}
    kept = {made: picture for made, picture in kept.items() if picture.exists()}
    assert len(kept) >= 4
    assert [picture.name for made, picture in kept.items() if differs(made, picture)] == []
