import contextlib

import pytest

from desktop import Desktop


@pytest.fixture
def desktop(request):
    # A private desktop for one scenario. `@pytest.mark.desktop(screen="800x480")` gives it another size.
    mark = request.node.get_closest_marker("desktop")
    with contextlib.ExitStack() as ends:
        found = Desktop(ends, **(mark.kwargs if mark else {}))
        yield found
        # Shown of a scenario that failed.
        print(found.log()[-6000:], list(found.windows()), found.clock.now(), found.clock.rate)
        print("".join(file.read_text()[-3000:] for file in found.home.glob("stderr")))
        assert {program.process.poll() for program in found.programs} <= {None}, "ended untold"
        assert "Sanitizer" not in found.log()
