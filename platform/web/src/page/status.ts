import { byId, button } from "../ui/dom.ts";
import { texts } from "../ui/texts.ts";

let timer: ReturnType<typeof setTimeout> | undefined;

/// Tells something, for a while or until the next message; with something to do about it.
export function showStatus(message: string, stays = false, action?: { readonly label: string; readonly perform: () => void }): void {
    const status = byId("status");
    clearTimeout(timer);
    status.replaceChildren(message);
    if (action)
        status.append(" ", button(action.label, () => {
            hideStatus();
            action.perform();
        }));
    if (stays)
        status.append(" ", button(texts.close, hideStatus));
    else
        timer = setTimeout(hideStatus, 8000);
}

export function hideStatus(): void {
    byId("status").replaceChildren();
}
