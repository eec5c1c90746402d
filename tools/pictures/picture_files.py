"""Small files of flat pictures, and one page that shows many of them."""
from PIL import Image, ImageDraw, ImageFont

COLOURS = 256  # of a palette
FLAT = 0.99  # of the pixels have the most frequent colours, where a picture has no gradients
FONT = "DejaVuSans.ttf"
PAPER, FRAME, INK = (255, 255, 255), (120, 120, 120), (40, 40, 40)
COLUMNS = 6
THUMBNAIL = (360, 204)  # pixels, at most
CAPTION = 26  # pixels below each
GAP = 14
HEADING = 48


def flat(picture):
    """With a palette: the colours there are, or the most frequent, each as it was."""
    pixels = picture.width * picture.height
    counted = sorted(picture.getcolors(pixels), reverse=True)
    frequent = counted[:COLOURS]
    if sum(count for count, _ in frequent) < FLAT * pixels:
        return picture.quantize(COLOURS, method=Image.Quantize.MEDIANCUT, kmeans=1,
                                dither=Image.Dither.NONE)
    palette = Image.new("P", (1, 1))
    palette.putpalette([channel for _, colour in frequent for channel in colour])
    return picture.quantize(palette=palette, dither=Image.Dither.NONE)


def save(picture, path):
    flat(picture).save(path, optimize=True)


def sheet(pictures, heading, path):
    """All of them, each over its caption; {caption: picture}."""
    rows = -(-len(pictures) // COLUMNS)
    step = THUMBNAIL[0] + GAP, THUMBNAIL[1] + CAPTION + GAP
    page = Image.new("RGB", (GAP + COLUMNS * step[0], HEADING + GAP + rows * step[1]), PAPER)
    draw = ImageDraw.Draw(page)
    draw.text((GAP, HEADING // 2), heading, INK, ImageFont.truetype(FONT, 24), anchor="lm")
    font = ImageFont.truetype(FONT, 15)
    for index, (caption, picture) in enumerate(pictures.items()):
        left = GAP + index % COLUMNS * step[0]
        top = HEADING + index // COLUMNS * step[1]
        small = picture.copy()
        small.thumbnail(THUMBNAIL, Image.Resampling.LANCZOS)
        left_of_small = left + (THUMBNAIL[0] - small.width) // 2
        page.paste(small, (left_of_small, top))
        draw.rectangle((left_of_small - 1, top - 1, left_of_small + small.width,
                        top + small.height), outline=FRAME)
        draw.text((left + THUMBNAIL[0] // 2, top + THUMBNAIL[1] + CAPTION // 2), caption, INK, font,
                  anchor="mm")
    save(page, path)
