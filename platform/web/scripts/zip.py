"""Makes FILE.zip of a folder's files, the same for the same files: zip.py FOLDER FILE.zip"""

import sys
from pathlib import Path
from zipfile import ZIP_DEFLATED, ZipFile, ZipInfo

folder, archive = map(Path, sys.argv[1:])
with ZipFile(archive, "w", compresslevel=9) as made:
    for file in sorted(each for each in folder.rglob("*") if each.is_file()):
        entry = ZipInfo(file.relative_to(folder).as_posix())
        entry.compress_type = ZIP_DEFLATED
        made.writestr(entry, file.read_bytes())
