"""Lets Inkscape run the installed extension: extension_test.py PREFIX SCRATCH."""
import base64
import os
import pathlib
import random
import re
import subprocess
import sys
import time
import urllib.parse

from PIL import Image, ImageChops, ImageFilter

prefix, scratch = map(pathlib.Path, sys.argv[1:])
ACROSS, DOWN, SIDE = 6, 4, 10  # tiles, and the pixels of each
NAMESPACES = ('xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
              'xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"')
BACKGROUND = '<path d="M-900-900 900 0-900 900z" style="fill:#7ac;fill-opacity:.6"/>'
failures = []


def check(condition, text):
    if not condition:
        failures.append(text)
        print("FAILED", text, flush=True)


def prepare():
    """Makes the picture, the gestures, and a description of the extension for each of these."""
    seeded = random.Random(7)
    corners = [[tuple(seeded.randrange(256) for _ in range(3)) for _ in range(ACROSS)]
               for _ in range(DOWN)]
    picture = Image.new("RGB", (ACROSS * SIDE, DOWN * SIDE))
    for y in range(picture.height):
        for x in range(picture.width):
            color = corners[y // SIDE][x // SIDE]
            picture.putpixel((x, y), tuple(max(0, c - 5 * (x % SIDE)) for c in color))
    picture.save(scratch / "a photo.png")
    numbers = f"enter HorizontalCountTxt {ACROSS}\nenter VerticalCountTxt {DOWN}\n"
    extensions = prefix / "share/inkscape/extensions"
    description = (extensions / "tesserae/create_tesserae.inx").read_text()
    for name, gestures in (("delete", numbers), ("keep", numbers + "click DeleteRasterChk\n"),
                           ("cancel", None)):
        script = scratch / f"{name}.gestures"
        script.write_text((gestures + "key Return\n") if gestures else "key Escape\n")
        text = re.sub("<id>.*</id>", f"<id>check.{name}</id>", description)
        text = text.replace("<effect ", '<param name="gestures" type="string" gui-hidden="true">'
                            f"{script}</param><effect ")
        (extensions / f"tesserae/check_{name}.inx").write_text(text)
    (scratch / "profile/extensions").mkdir(parents=True)
    (scratch / "profile/extensions/installed").symlink_to(extensions)
    os.environ.update(INKSCAPE_PROFILE_DIR=str(scratch / "profile"), LANGUAGE="en",
                      XDG_CONFIG_HOME=str(scratch / "config"))
    os.environ.pop("QT_QPA_PLATFORM", None)
    return picture


def means(picture):
    """The mean of each tile's share of the picture, in linear light, row by row."""
    def light(c):
        return c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4

    def screen(c):
        return 12.92 * c if c <= 0.0031308 else 1.055 * c ** (1 / 2.4) - 0.055

    colors = []
    for row in range(DOWN):
        for column in range(ACROSS):
            share = picture.crop((column * SIDE, row * SIDE, (column + 1) * SIDE, (row + 1) * SIDE))
            sums = [sum(light(p[i] / 255) for p in share.getdata()) for i in range(3)]
            colors.append([255 * screen(s / SIDE ** 2) for s in sums])
    return colors


def run_extension(document, ids, name, after=""):
    """What Inkscape exports after it ran the extension on these objects."""
    result = document.with_name(f"{document.stem}-{name}{after}.svg")
    actions = [f"select-by-id:{id}" for id in ids] + [f"check.{name}.noprefs"]
    actions += [after] if after else []
    actions += [f"export-filename:{result}", "export-do"]
    inkscape = subprocess.Popen(["inkscape", "--with-gui", "--batch-process",
                                 "--actions=" + ";".join(actions), document])
    try:
        # A box says what is wrong and waits; Escape closes it.
        deadline = time.monotonic() + 40
        while inkscape.poll() is None and time.monotonic() < deadline:
            time.sleep(0.2)
            if not ids and time.monotonic() > deadline - 34:
                subprocess.run("xdotool windowfocus $(xdotool search --onlyvisible --class inkscape "
                               "| tail -n 1) key Escape", shell=True, check=False)
    finally:
        inkscape.kill()
        inkscape.wait()
    check(result.exists(), f"{result.name}: Inkscape wrote no document")
    return result


def render(document, only=None):
    """The page at 192 dots per inch, and each object's bounding box as Inkscape sees it."""
    picture = document.with_name(f"{document.stem}{'-only' if only else ''}.png")
    actions = [f"export-id:{only}", "export-id-only"] if only else []
    actions += ["export-area-page", "export-dpi:192", f"export-filename:{picture}", "export-do"]
    output = subprocess.run(["inkscape", "--actions=" + ";".join(actions + ["query-all"]), document],
                            capture_output=True, text=True, check=True).stdout
    boxes = {}
    for line in output.splitlines():
        if line.count(",") == 4:
            id, *numbers = line.split(",")
            boxes[id] = [float(number) for number in numbers]
    return Image.open(picture).convert("RGBA"), boxes


def compare(name, document, result, ids, groups, colors):
    """The mosaics cover their pictures, tiles have their means, and nothing else has changed."""
    before, old = render(document)
    after, new = render(result)
    outside = Image.new("L", before.size, 255)
    tiles = re.findall(r'<rect\s[^>]*?id="([^"]+)"[^>]*/>', result.read_text())
    seen = 0
    for number, (id, group) in enumerate(zip(ids, groups)):
        alone, _ = render(document, id)
        covered = alone.getchannel("A").filter(ImageFilter.MaxFilter(5)).point(lambda a: 255 * (a > 0))
        outside = ImageChops.subtract(outside, covered)
        box = new.get(group, [0] * 4)
        errors = [abs(is_ - should) * 0.75 for is_, should in zip(box, old[id])]
        check(max(errors) < 0.01, f"{name}: {id} is at {old[id]}, its mosaic at {box}")
        for tile, color in zip(tiles[number * len(colors):], colors):
            x, y, width, height = new[tile]
            place = (int((x + width / 2) * 2), int((y + height / 2) * 2))
            inside = 0 <= place[0] < alone.width and 0 <= place[1] < alone.height
            if not inside or alone.getpixel(place)[3] < 255:
                continue  # clipped
            seen += 1
            is_ = after.getpixel(place)[:3]
            check(max(abs(a - b) for a, b in zip(is_, color)) <= 3,
                  f"{name}: {tile} of {id} is {is_}, not {color}")
    check(seen >= 8 * len(ids), f"{name}: only {seen} tiles show")
    difference = ImageChops.difference(before, after)
    for channel in difference.split():
        worst = ImageChops.multiply(channel, outside).getextrema()[1]
        check(worst == 0, f"{name}: outside of the picture differs by {worst}")


def documents():
    data = base64.b64encode((scratch / "a photo.png").read_bytes()).decode()
    embedded = f'xlink:href="data:image/png;base64,{data}"'
    linked = f'xlink:href="{urllib.parse.quote("a photo.png")}"'
    size = 'width="120" height="80"'
    layer = 'inkscape:groupmode="layer" inkscape:label="Ebene 1" id="layer1"'
    yield "embedded", 'width="300" height="200"', f'<image id="a" x="20" y="30" {size} {embedded}/>', ["a"], "delete"
    yield "turned", 'width="400" height="300"', (
        f'<g {layer} transform="translate(60,20)"><image id="a" {size} {linked} '
        'preserveAspectRatio="none" transform="matrix(1.2,0.5,-0.3,1.1,40,10)"/></g>'), ["a"], "keep"
    yield "millimetres", 'width="100mm" height="80mm" viewBox="0 0 100 80"', (
        f'<image id="a" x="12.3" y="9.87" width="60mm" height="40" {embedded} '
        'transform="rotate(-12 50 40) scale(.3 .9)" preserveAspectRatio="none"/>'), ["a"], "delete"
    yield "clipped", 'width="5in" height="4in" viewBox="10 20 250 200"', (
        '<defs><clipPath id="c"><circle cx="100" cy="90" r="45"/></clipPath></defs>'
        f'<g {layer}><g clip-path="url(#c)"><image id="a" x="40" y="50" {size} {linked}/></g></g>'), ["a"], "delete"
    yield "two", 'width="400" height="300"', (
        f'<image id="a" x="9" y="9" {size} {embedded} style="opacity:1"/><g transform="scale(1,-1)">'
        f'<image id="b" x="200" y="-200" {size} {linked}/></g>'), ["a", "b"], "delete"


colors = means(prepare())
for name, root, content, ids, how in documents():
    document = scratch / f"{name}.svg"
    document.write_text(f"<svg {NAMESPACES} {root}>{BACKGROUND}{content}</svg>")
    result = run_extension(document, ids, how)
    if result.exists():
        groups = [id + "-mosaic" if how == "keep" else id for id in ids]
        compare(name, document, result, ids, groups, colors)
    print(name, flush=True)

document = scratch / "embedded.svg"
for name, how, ids, after in (("cancelled", "cancel", ["a"], ""), ("undone", "delete", ["a"], "undo"),
                              ("nothing selected", "delete", [], "")):
    result = run_extension(document, ids, how, after)
    text = result.read_text() if result.exists() else ""
    check(text.count("<image") == 1 and "<rect" not in text, f"{name}: the document has changed")
    print(name, flush=True)
sys.exit(f"{len(failures)} failures" if failures else 0)
