/// Shift for the next letter, or locked by a second tap soon after the first.
export class Shift {
    state: "off" | "once" | "locked" = "off";
    #tapped = -Infinity;

    tap(now: number): void {
        const isDouble = now - this.#tapped < 350;
        this.#tapped = now;
        this.state = this.state === "once" && isDouble ? "locked" : this.state === "off" ? "once" : "off";
    }

    /// A letter was typed.
    used(): void {
        if (this.state === "once")
            this.state = "off";
    }

    get isOn(): boolean {
        return this.state !== "off";
    }
}
