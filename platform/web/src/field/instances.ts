import { Vanoka } from "../core/index.ts";

/// A trap of the module can only come of a lack of memory: another instance takes over, from the same compiled code.
export function instances(module: WebAssembly.Module, first: Vanoka): () => Vanoka {
    let current = first;
    return () => {
        if (current.module.isBroken)
            current = Vanoka.again(module);
        return current;
    };
}
