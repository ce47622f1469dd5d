import type { Target } from "./Writer.ts";

const highlightName = "vanoka-marked";
const clusters = new Intl.Segmenter(undefined, { granularity: "grapheme" });

interface Place {
    readonly node: Node;
    readonly offset: number;
}

const isLineEnd = (node: Node): boolean => node.nodeName === "BR";

/// A `contenteditable=plaintext-only` element as a target of typing. What is marked stands in the text as plain
/// characters that the undo history does not know, with a highlight over them; each word that goes in is one step
/// of it. Carets are counted, never read back after a command: browsers place them behind the wrong letter where a
/// virama comes before one.
export class EditableField implements Target {
    #marked: { node: Text; start: number; length: number } | undefined;
    #isChanging = false;

    constructor(readonly element: HTMLElement) {}

    /// The text as it is seen; an end of line that only keeps the last line open is none of it.
    get text(): string {
        const { text } = this.#walk();
        return text.endsWith("\n") && this.element.lastChild && isLineEnd(this.element.lastChild) ? text.slice(0, -1) : text;
    }

    set text(text: string) {
        this.#marked = undefined;
        this.element.textContent = text;
        this.#highlight();
    }

    /// While a command of this field's own runs.
    get isChanging(): boolean {
        return this.#isChanging;
    }

    /// Whether the caret still stands behind what is marked; true when nothing is.
    get isCaretInPlace(): boolean {
        const selection = getSelection();
        if (!this.#marked || !selection)
            return true;
        const { node, start, length } = this.#marked;
        return selection.isCollapsed && selection.focusNode === node && selection.focusOffset === start + length;
    }

    /// In UTF-16 units from the beginning of the text.
    get caret(): number {
        const selection = getSelection();
        if (!selection?.focusNode || !this.element.contains(selection.focusNode))
            return this.text.length;
        return this.#walk({ node: selection.focusNode, offset: selection.focusOffset }).reached;
    }

    set caret(units: number) {
        const place = this.#placeAt(Math.max(units, 0));
        getSelection()?.collapse(place.node, place.offset);
    }

    mark(text: string): void {
        const marked = this.#marked ?? this.#beginMarking();
        marked.node.replaceData(marked.start, marked.length, text);
        marked.length = text.length;
        this.#marked = text === "" ? undefined : marked;
        getSelection()?.collapse(marked.node, marked.start + text.length);
        this.#highlight();
        this.#keepVisible();
    }

    insert(text: string): void {
        if (this.#marked)
            this.#takeOut();
        this.#command("insertText", text);
        this.#keepVisible();
    }

    /// Takes `units` before the caret out, and puts a text in, as one step of the history.
    replaceBefore(units: number, text: string): void {
        const { caret } = this, from = this.#placeAt(caret - units), to = this.#placeAt(caret);
        getSelection()?.setBaseAndExtent(from.node, from.offset, to.node, to.offset);
        this.#command(text === "" ? "delete" : "insertText", text);
    }

    /// Takes out what is selected, or the character before the caret.
    deleteBackward(): void {
        const selection = getSelection();
        if (selection && !selection.isCollapsed)
            return this.#command("delete");
        const last = this.#characterBefore(this.caret);
        if (last !== "")
            this.replaceBefore(last.length, "");
    }

    /// By characters; a negative number moves towards the beginning.
    moveCaret(characters: number): void {
        let { caret } = this;
        const { text } = this;
        for (let step = 0; step < Math.abs(characters); ++step)
            caret += characters < 0 ? -this.#characterBefore(caret).length : this.#characterAfter(text, caret).length;
        this.caret = caret;
        this.#keepVisible();
    }

    breakLine(): void {
        this.#isChanging = true;
        document.execCommand("insertLineBreak");
        this.#isChanging = false;
        this.#keepVisible();
    }

    /// The text of one line before the caret.
    get before(): string {
        const { text } = this, { caret } = this;
        return text.slice(text.lastIndexOf("\n", caret - 1) + 1, caret);
    }

    clear(): void {
        this.element.focus();
        getSelection()?.selectAllChildren(this.element);
        this.#command("delete");
    }

    #characterBefore(caret: number): string {
        const { before } = this;
        if (before === "")
            return caret > 0 ? "\n" : "";
        return [...clusters.segment(before.slice(-64))].at(-1)!.segment;
    }

    #characterAfter(text: string, caret: number): string {
        return clusters.segment(text.slice(caret, caret + 64))[Symbol.iterator]().next().value?.segment ?? "";
    }

    /// A text node with the caret in it. What is selected goes first, in a step of its own, or undo would lose it.
    #beginMarking(): { node: Text; start: number; length: number } {
        const selection = getSelection();
        if (!selection?.focusNode || !this.element.contains(selection.focusNode))
            this.caret = this.text.length;
        else if (!selection.isCollapsed)
            this.#command("delete");
        const place = this.#textPlace({ node: selection!.focusNode!, offset: selection!.focusOffset });
        return { node: place.node, start: place.offset, length: 0 };
    }

    #textPlace({ node, offset }: Place): { node: Text; offset: number } {
        if (node instanceof Text)
            return { node, offset };
        const before = node.childNodes[offset - 1], after = node.childNodes[offset];
        if (before instanceof Text)
            return { node: before, offset: before.length };
        if (after instanceof Text)
            return { node: after, offset: 0 };
        const made = document.createTextNode("");
        node.insertBefore(made, after ?? null);
        return { node: made, offset: 0 };
    }

    #takeOut(): void {
        const { node, start, length } = this.#marked!;
        this.#marked = undefined;
        node.deleteData(start, length);
        getSelection()?.collapse(node, start);
        this.#highlight();
    }

    #command(name: "insertText" | "delete", text = ""): void {
        const { anchorNode, anchorOffset, focusNode, focusOffset } = getSelection()!;
        const inField = focusNode !== null && this.element.contains(focusNode);
        if (!inField || !anchorNode)
            this.caret = this.text.length;
        const at = inField && anchorNode
            ? Math.min(this.#walk({ node: anchorNode, offset: anchorOffset }).reached, this.#walk({ node: focusNode, offset: focusOffset }).reached)
            : this.caret;
        this.#isChanging = true;
        if (!document.execCommand(name, false, text) && text !== "")
            this.#putIn(text);
        this.caret = at + text.length;
        this.#isChanging = false;
    }

    /// Where the browser refuses to, as in a field that is losing the focus.
    #putIn(text: string): void {
        const { node, offset } = this.#textPlace({ node: getSelection()!.focusNode!, offset: getSelection()!.focusOffset });
        node.insertData(offset, text);
    }

    /// The text, and how many units of it stand before a place.
    #walk(until?: Place): { text: string; reached: number } {
        let text = "", reached = -1;
        const visit = (node: Node): void => {
            if (node instanceof Text) {
                if (node === until?.node)
                    reached = text.length + until.offset;
                text += node.data;
            } else if (isLineEnd(node)) {
                text += "\n";
            } else {
                node.childNodes.forEach((child, at) => {
                    if (node === until?.node && at === until.offset)
                        reached = text.length;
                    visit(child);
                });
            }
        };
        visit(this.element);
        return { text, reached: reached < 0 ? text.length : reached };
    }

    #placeAt(units: number): Place {
        let left = units, last: Place = { node: this.element, offset: 0 };
        const walker = document.createTreeWalker(this.element, NodeFilter.SHOW_ALL);
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            if (node instanceof Text) {
                if (left <= node.length)
                    return { node, offset: left };
                left -= node.length;
                last = { node, offset: node.length };
            } else if (isLineEnd(node)) {
                const at = [...node.parentNode!.childNodes].indexOf(node as ChildNode);
                if (left === 0)
                    return { node: node.parentNode!, offset: at };
                left -= 1;
                last = { node: node.parentNode!, offset: at + 1 };
            }
        }
        return last;
    }

    #highlight(): void {
        if (!("highlights" in CSS))
            return;
        if (!this.#marked) {
            CSS.highlights.delete(highlightName);
            return;
        }
        const { node, start, length } = this.#marked;
        const range = new Range();
        range.setStart(node, start);
        range.setEnd(node, start + length);
        CSS.highlights.set(highlightName, new Highlight(range));
    }

    #keepVisible(): void {
        const range = getSelection()?.rangeCount ? getSelection()!.getRangeAt(0) : undefined;
        const caret = range?.getClientRects()[0], frame = this.element.getBoundingClientRect();
        if (caret && caret.bottom > frame.bottom - 8)
            this.element.scrollTop += caret.bottom - frame.bottom + 16;
        else if (caret && caret.top < frame.top)
            this.element.scrollTop -= frame.top - caret.top + 8;
    }
}
