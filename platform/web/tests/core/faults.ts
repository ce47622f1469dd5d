import "fake-indexeddb/auto";

export type How = "throws" | "aborts";

const names = ["get", "getAll", "add", "clear", "put"] as const;
type Call = (...given: unknown[]) => IDBRequest;
const stores = IDBObjectStore.prototype as unknown as Record<string, Call>;

/// Lets one call of a transaction fail while `act` runs, the first one being 1: it throws, or it succeeds and then the
/// transaction is aborted, as when there is no room. Returns whether there were so many calls.
export async function failing(at: number, how: How, act: () => Promise<unknown>): Promise<boolean> {
    const plain = names.map((name) => [name, stores[name]!] as const);
    let calls = 0;
    for (const [name, call] of plain)
        stores[name] = function (this: IDBObjectStore, ...given): IDBRequest {
            const isThis = ++calls === at;
            if (isThis && how === "throws")
                throw new DOMException("refused", "UnknownError");
            const request = call.apply(this, given);
            if (isThis)
                request.addEventListener("success", () => this.transaction.abort());
            return request;
        };
    try {
        await act();
    } finally {
        for (const [name, call] of plain)
            stores[name] = call;
    }
    return calls >= at;
}
