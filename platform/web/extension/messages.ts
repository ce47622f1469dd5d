import type { Question } from "../src/words/protocol.ts";

/// What a page's frame asks of the background: candidates and lessons, and to show what the tab's state is. The popup
/// asks whether the last lesson could be stored: true or false.
export type ToBackground =
    | { readonly what: "ask"; readonly question: Extract<Question, { what: "find" | "teach" }> }
    | { readonly what: "show"; readonly state: TabState }
    | { readonly what: "isStored" };
export type FromBackground = { readonly answer: unknown } | { readonly failed: string };

/// "off": on this site; "failed": the module cannot run here.
export type TabState = "usual" | "off" | "failed";

/// What the popup asks of a tab's first frame.
export interface SiteQuestion {
    readonly what: "site";
}
