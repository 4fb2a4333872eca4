"""What the folders may know of each other, and what may stand where, read off the sources."""

import re
from pathlib import Path, PurePosixPath

TOP = Path(__file__).resolve().parents[2]
FOLDERS = ["src", "simulator", "tests", "tools", "benchmarks", "docs", "packaging", "debian", "cmake", ".ci"]

ARROWS = {
    "commands": {"commands", "shell", "screens", "ui", "desk", "data", "platform"},
    "shell": {"shell", "screens", "ui", "desk", "data", "platform"},
    "screens": {"screens", "ui", "desk", "data", "platform"},
    "ui": {"ui", "data", "platform"},
    "desk": {"desk", "data", "platform"},
    "data": {"data", "platform"},
    "platform": {"platform"},
    "resources": {"resources", "platform"},
}
BACKENDS = {"linux", "qt", "simulated"}
GENERATED = re.compile(r"(.*\.moc|moc_.*|ui_.*|.*-protocol\.h)")
COMMENT_OR_LITERAL = re.compile(
    r'//[^\n]*|/\*.*?(?:\*/|\Z)|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
CLOCK = re.compile(
    r"\bQ(Chrono|Basic|Elapsed|Deadline)?Timer\b|\bcurrentDateTime(Utc)?\b|\bQ(Date|Time)::current"
    r"|\bcurrentM?SecsSinceEpoch\b|\bstd::chrono\b|<chrono>|\btime\s*\(\s*(nullptr|NULL|0)\s*\)"
    r"|\bgettimeofday\b|\bclock_gettime\b|\btimerfd_create\b|\bstartTimer\s*\(|\bgetNow\s*\("
    r"|\b[mun]?(ano)?sleep\s*\((?!\))|\bsleep_(for|until)\b")  # A sleep that takes no time is a question.


def wrong_include(path, include):
    """Why a file of the program may not have this include; None when it may."""
    here, there = PurePosixPath(path).parts, PurePosixPath(include).parts
    if here[0] == "simulator":
        return None if there[0] == "simulator" else "shares the program's code with the other end of the wire"
    if include.startswith("."):
        return "is not written from the source root"
    if len(there) == 1:  # Beside main.cpp lies what only main.cpp uses.
        return None if len(here) == 2 or GENERATED.fullmatch(include) else "names no folder"
    if there[0] == "simulator":
        return None if path.startswith("src/platform/simulated/") else "is for the simulated backend alone"
    if len(here) > 2 and there[0] not in ARROWS.get(here[1], ()):
        return "is an arrow that does not exist"
    # The developer's test window offers the simulated desk's faults.
    may_name = ("src/main.cpp", "src/Program", "src/SimulatedApplication.h", f"src/platform/{there[1]}/") + ("src/shell/TestWindow",) * (there[1] == "simulated")
    if there[0] != "platform" or there[1] not in BACKENDS or path.startswith(may_name):
        return None
    return "names a backend, which is for the program to choose"


def findings(path, text):
    code = COMMENT_OR_LITERAL.sub(lambda piece: "" if piece[0].startswith("/") else piece[0], text)
    found = [f"{match[0]}... is a path of one machine" for match in re.finditer(r"(?<![\w./}~-])/home/[\w.]", text)]
    if not path.startswith(("src/", "simulator/")) or not path.endswith((".h", ".cpp")):
        return found
    for include in re.findall(r'^\s*#\s*include\s*"([^"]*)"', code, re.MULTILINE):
        if wrong := wrong_include(path, include):
            found.append(f"{include} {wrong}")
    # Only the backends know the time; the log names the true moment of a line, also under a virtual clock.
    # A kernel that has plugged the simulated desk in has no virtual clock either.
    if not path.startswith(("src/platform/qt/", "src/platform/linux/", "src/platform/Log.cpp", "simulator/UsbIpServer.cpp")):
        found += [f"{match[0]} goes past RunLoop" for match in CLOCK.finditer(code)]
    return found


def test_the_source_tree_obeys_its_rules():
    files = [path for path in TOP.iterdir() if path.suffix in {".md", ".txt", ".json", ""}]
    for folder in FOLDERS:
        files += (TOP / folder).rglob("*")
    assert TOP / "src/platform/RunLoop.cpp" in files
    found = []
    for path in files:
        if path.is_file() and "__pycache__" not in path.parts and path.suffix != ".png":
            name = path.relative_to(TOP).as_posix()
            found += [f"{name}: {what}" for what in findings(name, path.read_text())]
    assert not found
