"""Makes a template in the office program by the steps of
docs/how-to/word-templates.md: office_template.py SOFFICE FOLDER TARGET

Prints "tags" when the office program knows tags of content controls (from 7.5
on). An earlier one makes the controls but has no field for their tags; they are
then written into its file, and "no tags" is printed.
"""
import re
import subprocess
import sys
import time
import zipfile

import uno
from com.sun.star.beans import PropertyValue

NAMES = ("project", "list")  # in the order of the document


def connect(soffice, folder):
    pipe = "terva%d" % (time.time() * 1000)
    process = subprocess.Popen([soffice, "-env:UserInstallation=file://" + folder + "/profile-uno",
                                "--headless", "--norestore",
                                "--accept=pipe,name=%s;urp" % pipe])
    resolver = uno.getComponentContext().ServiceManager.createInstance(
        "com.sun.star.bridge.UnoUrlResolver")
    for _ in range(600):
        try:
            return process, resolver.resolve(
                "uno:pipe,name=%s;urp;StarOffice.ComponentContext" % pipe)
        except Exception:
            time.sleep(0.1)
    raise SystemExit("the office program does not answer")


def property_value(name, value):
    one = PropertyValue()
    one.Name, one.Value = name, value
    return one


def add_control(document, text, place, name):
    """Insert, Content Controls, Plain Text; then its properties Title and Tag."""
    cursor = text.createTextCursorByRange(place)
    text.insertString(cursor, "prompt", True)
    control = document.createInstance("com.sun.star.text.ContentControl")
    known = control.getPropertySetInfo()
    has_tags = known.hasPropertyByName("Tag")
    if has_tags:
        control.PlainText = True
    text.insertTextContent(cursor, control, True)
    if has_tags:
        control.Alias = name
        control.Tag = name
    return has_tags


def build(document):
    text = document.Text
    text.insertString(text.End, "Name of the project: ", False)
    has_tags = add_control(document, text, text.End, NAMES[0])
    text.insertControlCharacter(text.End, 0, False)
    table = document.createInstance("com.sun.star.text.TextTable")
    table.initialize(2, 3)
    text.insertTextContent(text.End, table, False)
    for name, value in (("A1", "No "), ("B1", "Name"), ("C1", "Depth"),
                        ("A2", "1"), ("B2", "sample"), ("C2", "0.0")):
        table.getCellByName(name).setString(value)
    head = table.getCellByName("A1")
    add_control(document, head, head.End, NAMES[1])
    return has_tags


def add_missing_tags(path):
    with zipfile.ZipFile(path) as old:
        entries = [(e.filename, old.read(e)) for e in old.infolist()]
    names = iter(NAMES)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as new:
        for name, data in entries:
            if name == "word/document.xml":
                data = re.sub("<w:sdtPr ?/>|<w:sdtPr>.*?</w:sdtPr>", lambda _: (
                    '<w:sdtPr><w:tag w:val="%s"/><w:text/></w:sdtPr>' % next(names)),
                    data.decode("utf-8")).encode("utf-8")
            new.writestr(name, data)


def main(soffice, folder, target):
    process, context = connect(soffice, folder)
    desktop = context.ServiceManager.createInstanceWithContext(
        "com.sun.star.frame.Desktop", context)
    document = desktop.loadComponentFromURL(
        "private:factory/swriter", "_blank", 0, (property_value("Hidden", True),))
    has_tags = build(document)
    document.storeToURL("file://" + target,
                        (property_value("FilterName", "MS Word 2007 XML"),))
    document.close(True)
    try:
        desktop.terminate()
    except Exception:
        pass  # the bridge falls with the program
    process.wait(60)
    if not has_tags:
        add_missing_tags(target)
    print("tags" if has_tags else "no tags")


main(*sys.argv[1:])
