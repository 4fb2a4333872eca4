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
        if request.node.report.failed:
            print(found.log()[-6000:])
            print("Windows:", {title: found.frame(window) for title, window in found.windows().items()})
            print("Time:", found.clock.now(), found.clock.rate)
            print("".join(file.read_text()[-3000:] for file in found.home.glob("stderr")))
        assert {program.process.poll() for program in found.programs} <= {None}, "ended untold"
        assert "Sanitizer" not in found.log()


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item):
    outcome = yield
    if outcome.get_result().when == "call":
        item.report = outcome.get_result()
