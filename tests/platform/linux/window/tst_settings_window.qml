import QtQuick
import QtTest
import VanokaWindow

TestCase {
    id: tests

    name: "SettingsWindow"
    when: windowShown

    property Window window: null
    readonly property var settings: bench.model

    Component {
        id: windowComponent
        SettingsWindow {
            width: 720
            height: 520
            minimumWidth: 660
            minimumHeight: 460
        }
    }
    SignalSpy {
        id: frames
        signalName: "frameSwapped"
    }

    function init() {
        bench.renew()
        window = windowComponent.createObject(null, {settings: bench.model, title: "Vanoka Settings"})
        window.show()
        window.requestActivate()
        tryCompare(window, "active", true)
    }

    function cleanup() {
        window.destroy()
        window = null
        wait(0)
    }

    function part(name) {
        const found = findChild(window, name)
        verify(found, name)
        return found
    }

    function walk(item, visit) {
        visit(item)
        for (let i = 0; i < item.children.length; ++i)
            walk(item.children[i], visit)
    }

    /// The control in a row of the key list.
    function control(row) {
        const controls = []
        walk(window.contentItem, item => {
            if (item.objectName === "control")
                controls.push(item.item)
        })
        controls.sort((a, b) => a.mapToItem(null, 0, 0).y - b.mapToItem(null, 0, 0).y)
        return controls[row]
    }

    function type(text) {
        part("field").forceActiveFocus()
        for (const letter of text)
            keyClick(letter)
    }

    function texts() {
        const seen = []
        walk(window.contentItem, item => {
            if (item.visible && item.text)
                seen.push(item.text)
        })
        return seen
    }

    function test_everyTextOfTheContentIsShown() {
        const s = settings
        const expected = [s.letterText.text, s.kind.text, s.example.text, s.keysTitle.text, s.addTitle.text, s.addButton,
            s.message.text, s.footnote.text, s.resetButton, s.productName.text, s.sinhalaName.text]
        for (const link of s.links)
            expected.push(link.label.text)
        const seen = texts()
        for (const text of expected)
            verify(seen.includes(text), text)
        compare(part("letters").count, 59)
        compare(part("field").placeholderText, "For example zq")
    }

    function test_theKeyboardStartsAtTheLetters() {
        verify(part("letters").activeFocus)
        keyClick(Qt.Key_Down)
        compare(settings.selectedRow, 1)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        compare(settings.selectedRow, 0, "the first row is the end")
        keyClick(Qt.Key_End)
        compare(settings.selectedRow, 58)
        keyClick(Qt.Key_PageUp)
        verify(settings.selectedRow < 58)
        keyClick(Qt.Key_Home)
        keyClick(Qt.Key_Home)
        compare(settings.selectedRow, 0)
    }

    function test_theChosenRowIsInSight() {
        const list = part("letters")
        for (const key of [Qt.Key_End, Qt.Key_Home]) {
            keyClick(key)
            tryCompare(list, "currentIndex", settings.selectedRow)
            const y = list.currentItem.y - list.contentY
            verify(y >= 0 && y + list.currentItem.height <= list.height, `row at ${y}`)
        }
    }

    function test_aClickChoosesALetter() {
        const list = part("letters")
        mouseClick(list.itemAtIndex(4))
        compare(settings.selectedRow, 4)
        tryCompare(part("message"), "text", "Type the letters you want to press for \u0D89.")
    }

    function test_aKeystrokeShowsItsMessageInTheNextFrame() {
        const message = part("message")
        frames.target = window
        part("field").forceActiveFocus()
        let framesBefore = -1
        const countFrames = () => framesBefore = frames.count
        message.textChanged.connect(countFrames)
        frames.clear()
        keyClick("q")
        tryCompare(message, "text", "kq \u2192 \u0D9A")
        message.textChanged.disconnect(countFrames)
        compare(framesBefore, 0)
    }

    function test_returnAddsAndEmptiesTheField() {
        type("q")
        tryCompare(part("add"), "enabled", true)
        keyClick(Qt.Key_Return)
        tryCompare(part("field"), "text", "")
        tryCompare(part("add"), "enabled", false)
        compare(settings.keys.rowCount(), 2)
        verify(part("field").activeFocus, "for the next key")
        verify(bench.stored().includes('"q"'))
    }

    function test_returnAddsWhereverTheKeyboardIs() {
        type("q")
        part("letters").forceActiveFocus()
        keyClick(Qt.Key_Enter)
        tryCompare(part("field"), "text", "")
        verify(bench.stored().includes('"q"'))
    }

    function test_whatCannotBeAddedStays() {
        type("1")
        tryCompare(part("message"), "text", "Use English letters only")
        verify(!part("add").enabled)
        keyClick(Qt.Key_Return)
        wait(20)
        compare(part("field").text, "1")
        compare(bench.stored(), "")
    }

    function test_theFieldIsEmptyBeforeTheNextKeyComes() {
        type("zaw")
        settings.addDraft()
        compare(part("field").text, "")
        type("zbw")
        settings.select(3)
        compare(part("field").text, "", "the other letter has its own")
    }

    function test_anotherLetterEmptiesTheField() {
        type("q")
        settings.select(3)
        tryCompare(part("field"), "text", "")
        settings.select(0)
        wait(20)
        compare(part("field").text, "")
    }

    function test_aSwitchSwitchesAndKeepsTheKeyboard() {
        const toggle = control(0)
        toggle.forceActiveFocus()
        keyClick(Qt.Key_Space)
        tryCompare(part("example"), "text", "No key types this letter right now")
        compare(control(0), toggle, "it is the same switch")
        verify(!toggle.checked && toggle.activeFocus)
        mouseClick(toggle)
        tryCompare(part("example"), "text", "ka \u2192 \u0D9A")
        bench.setBuiltIn("a", false)
        tryCompare(toggle, "checked", false, 1000, "it follows edits made elsewhere, too")
    }

    function test_takingBackLeavesTheKeyboardWithTheKey() {
        bench.add("a", "\u0D86")
        tryVerify(() => control(0) instanceof PushButton)
        compare(control(0).text, "Take back")
        compare(control(0).help, "Make a type \u0D85 again")
        control(0).forceActiveFocus()
        keyClick(Qt.Key_Return)
        tryVerify(() => control(0) instanceof OnOffSwitch)
        verify(control(0).activeFocus)
        compare(bench.stored(), "")
    }

    function test_aRemovedKeyLeavesTheKeyboardToTheField() {
        bench.add("q", "\u0D85")
        tryVerify(() => control(1) instanceof RemoveButton)
        compare(control(1).help, "Remove this key")
        control(1).forceActiveFocus()
        keyClick(Qt.Key_Return)
        tryVerify(() => control(1) === undefined)
        tryCompare(part("field"), "activeFocus", true)
        compare(bench.stored(), "")
    }

    function test_resetAsksFirst() {
        compare(part("reset").enabled, false)
        bench.add("q", "\u0D85")
        tryCompare(part("reset"), "enabled", true)
        const answers = [
            () => keyClick(Qt.Key_Escape),
            () => keyClick(Qt.Key_Return), // Cancel has the keyboard
            () => mouseClick(window.contentItem, 4, 4)
        ]
        for (const answer of answers) {
            mouseClick(part("reset"))
            tryCompare(settings, "isConfirmingReset", true)
            tryVerify(() => part("cancel").activeFocus)
            answer()
            tryCompare(settings, "isConfirmingReset", false)
            wait(20)
            verify(bench.stored() !== "")
        }
        mouseClick(part("reset"))
        tryVerify(() => part("cancel").activeFocus)
        mouseClick(part("confirm"))
        tryCompare(part("reset"), "enabled", false)
        compare(settings.isConfirmingReset, false)
        compare(bench.stored(), "")
    }

    function test_asksForALetterWhenNoneIsChosen() {
        settings.select(-1)
        tryVerify(() => texts().includes("Choose a letter"))
        verify(!texts().includes("Keys"))
        settings.select(0)
        tryVerify(() => texts().includes("Keys"))
    }

    function test_everythingIsReachedInTheSmallestWindow() {
        window.width = window.minimumWidth
        window.height = window.minimumHeight
        for (const key of ["qq", "qw", "qe", "qt", "qy"])
            bench.add(key, "\u0D85")
        tryVerify(() => control(5) !== undefined)
        for (const item of [control(5), part("field"), control(0)]) {
            item.forceActiveFocus()
            wait(0)
            const top = item.mapToItem(null, 0, 0).y
            verify(top >= 0 && top + item.height <= window.height, `${item} at ${top}`)
        }
    }

    function test_everythingIsReachedOnATinyScreen() {
        window.minimumWidth = 0
        window.minimumHeight = 0
        window.width = 398
        window.height = 200
        bench.haveTrouble("No space left on device")
        bench.add("qq", "\u0D85")
        type("q")
        tryCompare(part("add"), "enabled", true)
        verify(part("field").width >= 100, `${part("field").width}`)
        for (const name of ["letters", "field", "add", "reset", "letters"]) {
            const item = part(name)
            item.forceActiveFocus()
            wait(0)
            const corner = item.mapToItem(null, 0, 0)
            const top = part("notice").mapToItem(null, 0, part("notice").height).y
            verify(corner.x >= 0 && corner.x + item.width <= window.width, `${name} at ${corner}`)
            verify(corner.y >= top && corner.y < window.height, `${name} at ${corner}, under ${top}`)
        }
    }

    function test_whatCouldNotBeStoredIsSaidAbove() {
        const notice = part("notice")
        verify(!notice.visible)
        bench.haveTrouble("No space left on device")
        type("q")
        keyClick(Qt.Key_Return)
        tryCompare(notice, "text", "Your keys could not be stored: No space left on device.")
        verify(notice.visible)
        verify(notice.mapToItem(null, 0, notice.height).y <= part("reset").mapToItem(null, 0, 0).y)
        bench.haveTrouble("")
        type("w")
        tryCompare(notice, "visible", false)
    }

    function test_aDarkPaletteMakesADarkWindow() {
        verify(!Appearance.isDark)
        bench.makePaletteDark(true)
        tryVerify(() => Appearance.isDark)
        bench.makePaletteDark(false)
        tryVerify(() => !Appearance.isDark)
    }

    function test_noTextIsCutShort_data() {
        return [{tag: "ideal", width: 720, height: 520}, {tag: "smallest", width: 660, height: 460},
            {tag: "on a small screen", width: 636, height: 376}]
    }
    function test_noTextIsCutShort(row) {
        window.minimumWidth = 0
        window.minimumHeight = 0
        window.width = row.width
        window.height = row.height
        bench.add("a", "\u0D83")
        type("qqqqqq")
        wait(20)
        const edge = settings.sidebarWidth
        walk(window.contentItem, item => {
            if (item.truncated === undefined || !item.visible)
                return
            verify(!item.truncated, item.text)
            const left = item.mapToItem(null, item.leftPadding, 0).x
            verify(left + item.contentWidth <= (left < edge ? edge : window.width), item.text)
        })
    }

    /// The help that is shown, if any.
    function tips() {
        const shown = []
        const overlay = window.contentItem.parent ?? window.contentItem
        walk(overlay, item => {
            if (item.visible && item.objectName === "tip")
                shown.push(item.text)
        })
        return shown
    }

    function test_helpIsShownWhereThePointerRests_data() {
        return [
            {tag: "switch", item: () => control(0), help: "Built-in key"},
            {tag: "button", item: () => control(1), help: "Make K type \u0D9B again"},
            {tag: "symbol", item: () => control(2), help: "Remove this key"},
            {tag: "dot", item: () => findChild(part("letters").currentItem, "dot"), help: "You changed this letter's keys"},
        ]
    }
    function test_helpIsShownWhereThePointerRests(row) {
        bench.add("K", "\u0D85")
        bench.add("q", "\u0D9B")
        for (let i = 0; i < 59 && settings.letterText.text !== "\u0D9B"; ++i)
            settings.select(i)
        tryVerify(() => control(2) instanceof RemoveButton && row.item())
        mouseMove(row.item(), row.item().width / 2, row.item().height / 2)
        tryVerify(() => tips().includes(row.help), 2000)
        mouseMove(window.contentItem, 300, window.height - 4)
        tryVerify(() => tips().length === 0)
    }

    function test_ctrlWClosesTheWindow() {
        keyClick("w", Qt.ControlModifier)
        tryCompare(window, "visible", false)
    }

    /// The contrast of two colours, from 1 to 21, as the web's accessibility guidelines reckon it.
    function contrast(a, b) {
        const part = c => c <= 0.03928 ? c / 12.92 : Math.pow((c + 0.055) / 1.055, 2.4)
        const light = c => 0.2126 * part(c.r) + 0.7152 * part(c.g) + 0.0722 * part(c.b) + 0.05
        return Math.max(light(a), light(b)) / Math.min(light(a), light(b))
    }

    function test_coloursCanBeRead_data() {
        return [
            {tag: "light", dark: false, highContrast: false},
            {tag: "dark", dark: true, highContrast: false},
            {tag: "light, high contrast", dark: false, highContrast: true},
            {tag: "dark, high contrast", dark: true, highContrast: true}
        ]
    }
    function test_coloursCanBeRead(row) {
        Theme.dark = row.dark
        Theme.highContrast = row.highContrast
        const pairs = []
        for (const role of ["primary", "secondary", "accent", "red", "orange"])
            for (const paper of ["window", "sidebar", "card"])
                pairs.push([role, paper, 4.5])
        pairs.push(["primary", "selection", 4.5], ["accent", "selection", 3], ["primary", "button", 4.5],
            ["secondary", "field", 4.5], ["onFill", "accentFill", 4.5], ["onFill", "redFill", 4.5],
            ["ring", "window", 3], ["ring", "card", 3], ["ring", "sidebar", 3], ["ring", "selection", 3],
            ["fieldLine", "card", 3], ["fieldLine", "field", 3], ["switchOff", "card", 3], ["accentFill", "card", 3])
        for (const [ink, paper, least] of pairs)
            verify(contrast(Theme[ink], Theme[paper]) >= least, `${ink} on ${paper}: ${contrast(Theme[ink], Theme[paper])}`)
        Theme.dark = false
        Theme.highContrast = false
    }
}
