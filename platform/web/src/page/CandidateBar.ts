import type { Candidate } from "../core/index.ts";
import { button, make } from "../ui/dom.ts";
import { filled, texts } from "../ui/texts.ts";

/// The line of candidates. Its place is always kept, so that nothing moves when words come.
export class CandidateBar {
    constructor(readonly element: HTMLElement) {
        element.addEventListener("pointerdown", (event) => event.preventDefault());
    }

    show(rows: readonly Candidate[], highlighted: number, choose: (row: number) => void, forget?: (row: number) => void): void {
        this.element.setAttribute("aria-label", texts.candidates);
        this.element.replaceChildren(...rows.map((row, at) => {
            const item = make("span", { className: "candidate" },
                button(row.text, () => choose(at), { className: row.kind, "aria-pressed": at === highlighted,
                    ...(row.kind === "latin" ? { lang: "en" } : {}) }));
            if (row.isLearnt && forget)
                item.append(button("\u00D7", () => forget(at), { className: "forget", "aria-label": filled(texts.forget, row.text),
                    title: filled(texts.forget, row.text) }));
            return item;
        }));
        this.element.querySelector("[aria-pressed=true]")?.scrollIntoView?.({ block: "nearest", inline: "nearest" });
    }
}
