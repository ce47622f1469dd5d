/// Which call of a verb the module traps in, and whether it has done its work before.
export interface Trap {
    readonly call: number;
    readonly isLate: boolean;
}

/// Instances that trap where they are told to, and tell of calls after that.
export class TrappingInstances {
    static readonly #cannotTrap = /^(_|vanoka_(alloc|free|answer_(count|items)|.*_release)$)/; // they take no memory
    next: Trap | undefined;
    always = false;
    callsAfterTraps: string[] = [];
    readonly #plain = WebAssembly.Instance;
    readonly #plainly = WebAssembly.instantiate;
    #calls = 0;

    install(): void {
        const made = (module: WebAssembly.Module, imports: WebAssembly.Imports): object => ({ exports: this.#guarded(new this.#plain(module, imports).exports) });
        (WebAssembly as { Instance: unknown }).Instance = function (module: WebAssembly.Module, imports: WebAssembly.Imports) { return made(module, imports); };
        (WebAssembly as { instantiate: unknown }).instantiate = async (module: WebAssembly.Module, imports: WebAssembly.Imports) => made(module, imports);
    }

    remove(): void {
        WebAssembly.Instance = this.#plain;
        WebAssembly.instantiate = this.#plainly;
    }

    /// In the course of `act`; true when it came to that.
    during(trap: Trap | undefined, act: () => void): boolean {
        this.#expect(trap);
        act();
        return this.#hasTrapped(trap);
    }

    /// The same of what takes its time.
    async duringAll(trap: Trap | undefined, act: () => Promise<unknown>): Promise<boolean> {
        this.#expect(trap);
        await act();
        return this.#hasTrapped(trap);
    }

    #expect(trap: Trap | undefined): void {
        this.next = trap;
        this.#calls = 0;
    }

    #hasTrapped(trap: Trap | undefined): boolean {
        const hasTrapped = trap !== undefined && this.next === undefined;
        this.next = undefined;
        return hasTrapped;
    }

    #guarded(exports: WebAssembly.Exports): WebAssembly.Exports {
        let isBroken = false;
        const guarded = (name: string, call: (...given: unknown[]) => unknown) => (...given: unknown[]): unknown => {
            if (isBroken)
                this.callsAfterTraps.push(name);
            if (TrappingInstances.#cannotTrap.test(name) || !this.always && this.next?.call !== this.#calls++)
                return call(...given);
            if (this.next?.isLate)
                call(...given);
            this.next = undefined;
            isBroken = true;
            throw new WebAssembly.RuntimeError("unreachable");
        };
        return Object.fromEntries(Object.entries(exports).map(([name, value]) =>
            [name, typeof value === "function" ? guarded(name, value as () => unknown) : value])) as WebAssembly.Exports;
    }
}
